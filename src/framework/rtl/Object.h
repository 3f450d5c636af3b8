#pragma once
// TObject and its class references. A TMetaClass names a class, its parent, how to
// make one (for classes read from a component stream) and its published properties.
// Each class that takes part defines StaticClass() and ClassType() itself, with no
// macro in between:
//
//   const TMetaClass& TFoo::StaticClass() {
//     static const TMetaClass meta = TMetaClass("TFoo", &TBase::StaticClass())
//         .Creates<TFoo>()
//         .Published(StrProp("Caption", &TFoo::Caption, &TFoo::SetCaption));
//     return meta;
//   }

#include <QString>
#include <memory>
#include <vector>

namespace quil {

class TObject;
class TComponent;
class TPropInfo;

class TMetaClass {
public:
  // Makes an instance; owner is used by components and ignored by other classes.
  using Factory = TObject* (*)(TComponent* owner);

  TMetaClass(const char* name, const TMetaClass* parent);

  const QString& ClassName() const { return name_; }
  const TMetaClass* ClassParent() const { return parent_; }
  bool InheritsFrom(const TMetaClass& ancestor) const;

  // Null when the class is abstract or not meant to be made by name.
  Factory Creator() const { return factory_; }
  TObject* Create(TComponent* owner) const;

  // The published properties of this class alone; PropertyCount() and Property()
  // include the ancestors', parents first, as the stream writes them.
  const std::vector<std::shared_ptr<const TPropInfo>>& OwnProperties() const { return props_; }
  int PropertyCount() const;
  const TPropInfo* Property(int index) const;
  const TPropInfo* FindProperty(const QString& name) const;  // case-insensitive

  template <typename T>
  TMetaClass&& Creates() && {
    factory_ = &MakeInstance<T>;
    return std::move(*this);
  }
  TMetaClass&& Published(std::shared_ptr<const TPropInfo> prop) &&;

private:
  template <typename T>
  static TObject* MakeInstance(TComponent* owner) {
    if constexpr (std::is_constructible_v<T, TComponent*>) return new T(owner);
    else return new T();
  }

  QString name_;
  const TMetaClass* parent_;
  Factory factory_ = nullptr;
  std::vector<std::shared_ptr<const TPropInfo>> props_;
};

class TObject {
public:
  virtual ~TObject() = default;
  static const TMetaClass& StaticClass();
  virtual const TMetaClass& ClassType() const;

  QString ClassName() const { return ClassType().ClassName(); }
  bool InheritsFrom(const TMetaClass& ancestor) const {
    return ClassType().InheritsFrom(ancestor);
  }
};

// Registered classes can be made by name when a component stream names them.
void RegisterClass(const TMetaClass& meta);
void UnRegisterClass(const TMetaClass& meta);
const TMetaClass* GetClass(const QString& name);
const TMetaClass& FindClass(const QString& name);  // raises EClassNotFound

}  // namespace quil
