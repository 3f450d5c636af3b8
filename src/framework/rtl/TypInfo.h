#pragma once
// Published properties, reachable by name: what kind of value a property holds, how to
// read and write it on an instance, its default and whether a stream stores it.
//
// A class publishes its properties in StaticClass() with the builders at the end of
// this header; getters are const member functions returning by value or const
// reference, setters take by value or const reference, and no setter (nullptr) makes
// the property read-only:
//
//   .Published(IntProp("Width", &TFoo::Width, &TFoo::SetWidth).Default(64))
//   .Published(EnumProp("Alignment", &TFoo::Alignment, &TFoo::SetAlignment))
//   .Published(ObjectProp("Font", &TFoo::Font, &TFoo::SetFont))
//
// An enumeration that a property uses names its members once, beside its declaration,
// in ordinal order; the builders find the function by argument-dependent lookup:
//
//   enum TAlignment { taLeftJustify, taRightJustify, taCenter };
//   const TEnumTypeInfo& TypeInfo(TAlignment);
//   ...
//   const TEnumTypeInfo& TypeInfo(TAlignment) {
//     static const TEnumTypeInfo info("TAlignment", {"taLeftJustify", "taRightJustify", "taCenter"});
//     return info;
//   }
//
// Without a Default(), ordinal properties (integers, enumerations, booleans, sets) are
// "nodefault" and always stored; strings default to empty,
// floats to 0, objects, events and variants to none. NoDefault() stores any value.
//
// The free functions accept a dotted path ("Font.Name"): each name before a dot must be
// an object property holding an object, and the last name is taken from the object
// reached.

#include <QString>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

#include "framework/rtl/Events.h"
#include "framework/rtl/Object.h"
#include "framework/rtl/Sets.h"
#include "framework/rtl/Variants.h"

namespace quil {

extern QString SInvalidPropertyType;     // %s: the property name
extern QString SInvalidPropertyElement;  // %s: the element
extern QString SReadOnlyProperty;

// The format's order; streams and callers compare kinds, never their numbers.
enum TTypeKind {
  tkUnknown, tkInteger, tkChar, tkEnumeration, tkFloat, tkString, tkSet, tkClass, tkMethod,
  tkWChar, tkLString, tkWString, tkVariant, tkArray, tkRecord, tkInterface, tkInt64,
  tkDynArray, tkUString
};

class TTypeInfo {
public:
  TTypeInfo(TTypeKind kind, QString name) : kind_(kind), name_(std::move(name)) {}
  TTypeInfo(const TTypeInfo&) = delete;
  TTypeInfo& operator=(const TTypeInfo&) = delete;
  virtual ~TTypeInfo() = default;

  TTypeKind Kind() const { return kind_; }
  virtual QString Name() const { return name_; }

private:
  TTypeKind kind_;
  QString name_;
};

// An integer type. Some (a colour, a cursor) name chosen values; streams and text forms
// then write the name in place of the number.
class TIntegerTypeInfo : public TTypeInfo {
public:
  using ToIdentFn = std::optional<QString> (*)(int64_t value);
  using FromIdentFn = std::optional<int64_t> (*)(const QString& ident);

  TIntegerTypeInfo(TTypeKind kind, QString name, ToIdentFn toIdent = nullptr,
                   FromIdentFn fromIdent = nullptr)
      : TTypeInfo(kind, std::move(name)), toIdent_(toIdent), fromIdent_(fromIdent) {}

  std::optional<QString> IntToIdent(int64_t value) const;
  std::optional<int64_t> IdentToInt(const QString& ident) const;

private:
  ToIdentFn toIdent_;
  FromIdentFn fromIdent_;
};

// An enumeration whose members have ordinals 0 .. Count()-1.
class TEnumTypeInfo : public TTypeInfo {
public:
  TEnumTypeInfo(QString name, std::initializer_list<const char*> names);

  int Count() const { return int(names_.size()); }
  int MaxValue() const { return Count() - 1; }
  // Empty when ordinal is out of range.
  QString NameOf(int64_t ordinal) const;
  // -1 when no member has that name; case-insensitive.
  int ValueOf(const QString& name) const;

private:
  std::vector<QString> names_;
};

class TSetTypeInfo : public TTypeInfo {
public:
  explicit TSetTypeInfo(const TEnumTypeInfo& compType)
      : TTypeInfo(tkSet, QStringLiteral("set of ") + compType.Name()), compType_(compType) {}
  const TEnumTypeInfo& CompType() const { return compType_; }

private:
  const TEnumTypeInfo& compType_;
};

// The class is asked for lazily, since a class may publish a property of its own type.
class TClassTypeInfo : public TTypeInfo {
public:
  using MetaFn = const TMetaClass& (*)();
  explicit TClassTypeInfo(MetaFn meta) : TTypeInfo(tkClass, QString()), meta_(meta) {}
  const TMetaClass& ClassType() const { return meta_(); }
  QString Name() const override { return ClassType().ClassName(); }

private:
  MetaFn meta_;
};

const TIntegerTypeInfo& IntegerTypeInfo();
const TIntegerTypeInfo& Int64TypeInfo();
const TEnumTypeInfo& BooleanTypeInfo();  // False, True
const TTypeInfo& DoubleTypeInfo();
const TTypeInfo& StringTypeInfo();
// One UTF-16 character, held as its code; streams write it as a one-character string.
const TTypeInfo& WideCharTypeInfo();
const TTypeInfo& VariantTypeInfo();
const TTypeInfo& MethodTypeInfo();

template <typename E>
const TEnumTypeInfo& EnumTypeInfo() {
  static_assert(std::is_enum_v<E>, "enumeration type info is for enumerations");
  return TypeInfo(E{});
}

template <typename E>
const TSetTypeInfo& SetTypeInfo() {
  static const TSetTypeInfo info(EnumTypeInfo<E>());
  return info;
}

template <typename T>
const TClassTypeInfo& ClassTypeInfo() {
  static const TClassTypeInfo info(&T::StaticClass);
  return info;
}

class TPropInfo {
public:
  TPropInfo(const TPropInfo&) = delete;
  TPropInfo& operator=(const TPropInfo&) = delete;
  virtual ~TPropInfo() = default;

  const QString& Name() const { return name_; }
  const TTypeInfo& PropType() const { return *type_; }
  TTypeKind Kind() const { return type_->Kind(); }
  virtual bool IsReadOnly() const = 0;
  // Whether streams write the property of this instance; defaults are left out besides.
  bool IsStored(const TObject* instance) const { return !stored_ || stored_(instance); }
  // False for a nodefault property.
  virtual bool HasDefault() const = 0;
  virtual bool IsDefaultValue(const TObject* instance) const = 0;

protected:
  TPropInfo(QString name, const TTypeInfo& type) : name_(std::move(name)), type_(&type) {}
  [[noreturn]] void RaiseReadOnly() const;

private:
  template <typename P, typename V>
  friend class TPropBuilder;

  QString name_;
  const TTypeInfo* type_;
  std::function<bool(const TObject*)> stored_;  // empty: always stored
};

// Events have no untyped value: callers can ask whether one is set and clear it; the
// typed TEventPropInfo gets and sets the delegate.
class TMethodPropInfo : public TPropInfo {
public:
  virtual bool Assigned(const TObject* instance) const = 0;
  virtual void Clear(TObject* instance) const = 0;

protected:
  using TPropInfo::TPropInfo;
};

// A property read and written through its getter and setter as values of type V.
template <typename V, typename Base = TPropInfo>
class TValuePropInfo : public Base {
public:
  using ValueType = V;
  using Getter = std::function<V(const TObject*)>;
  using Setter = std::function<void(TObject*, const V&)>;

  TValuePropInfo(QString name, const TTypeInfo& type, Getter getter, Setter setter,
                 std::optional<V> defaultValue)
      : Base(std::move(name), type), getter_(std::move(getter)), setter_(std::move(setter)),
        default_(std::move(defaultValue)) {}

  V Get(const TObject* instance) const { return getter_(instance); }
  void Set(TObject* instance, const V& value) const {
    if (!setter_) this->RaiseReadOnly();
    setter_(instance, value);
  }
  const std::optional<V>& DefaultValue() const { return default_; }

  bool IsReadOnly() const override { return !setter_; }
  bool HasDefault() const override { return default_.has_value(); }
  bool IsDefaultValue(const TObject* instance) const override {
    return default_ && Get(instance) == *default_;
  }

private:
  template <typename P, typename U>
  friend class TPropBuilder;

  Getter getter_;
  Setter setter_;
  std::optional<V> default_;
};

// The untyped forms: ordinals (integers, enumerations, booleans and set masks as int64),
// doubles, strings, objects and variants.
using TOrdPropInfo = TValuePropInfo<int64_t>;
using TFloatPropInfo = TValuePropInfo<double>;
using TStrPropInfo = TValuePropInfo<QString>;
using TClassPropInfo = TValuePropInfo<TObject*>;
using TVariantPropInfo = TValuePropInfo<Variant>;

template <typename Event>
class TEventPropInfo : public TValuePropInfo<Event, TMethodPropInfo> {
public:
  using TValuePropInfo<Event, TMethodPropInfo>::TValuePropInfo;
  bool Assigned(const TObject* instance) const override { return this->Get(instance).Assigned(); }
  void Clear(TObject* instance) const override { this->Set(instance, Event()); }
};

// --- Access by name -------------------------------------------------------------------

// Null when the class, or the object reached along a dotted path, has no such property.
const TPropInfo* GetPropInfo(const TMetaClass& meta, const QString& path);
const TPropInfo* GetPropInfo(const TObject* instance, const QString& path);
bool IsPublishedProp(const TMetaClass& meta, const QString& path);
bool IsPublishedProp(const TObject* instance, const QString& path);
// Raises EPropertyError when there is no such property.
TTypeKind PropType(const TMetaClass& meta, const QString& path);
TTypeKind PropType(const TObject* instance, const QString& path);
bool PropIsType(const TObject* instance, const QString& path, TTypeKind kind);

// The getters and setters by name raise EPropertyError (SUnknownProperty) for a missing
// property and (SInvalidPropertyType) for a property of another kind.
int64_t GetOrdProp(const TObject* instance, const TPropInfo* prop);
int64_t GetOrdProp(const TObject* instance, const QString& path);
void SetOrdProp(TObject* instance, const TPropInfo* prop, int64_t value);
void SetOrdProp(TObject* instance, const QString& path, int64_t value);
int64_t GetInt64Prop(const TObject* instance, const QString& path);
void SetInt64Prop(TObject* instance, const QString& path, int64_t value);
double GetFloatProp(const TObject* instance, const TPropInfo* prop);
double GetFloatProp(const TObject* instance, const QString& path);
void SetFloatProp(TObject* instance, const TPropInfo* prop, double value);
void SetFloatProp(TObject* instance, const QString& path, double value);
QString GetStrProp(const TObject* instance, const TPropInfo* prop);
QString GetStrProp(const TObject* instance, const QString& path);
void SetStrProp(TObject* instance, const TPropInfo* prop, const QString& value);
void SetStrProp(TObject* instance, const QString& path, const QString& value);
// Enumerations by member name; booleans answer "False" or "True".
QString GetEnumProp(const TObject* instance, const QString& path);
void SetEnumProp(TObject* instance, const QString& path, const QString& value);
// Sets as "a,b", or "[a,b]" with brackets; the setter takes either, blanks allowed.
QString GetSetProp(const TObject* instance, const QString& path, bool brackets = false);
void SetSetProp(TObject* instance, const QString& path, const QString& value);
// Null when the value is null or not of minClass.
TObject* GetObjectProp(const TObject* instance, const TPropInfo* prop,
                       const TMetaClass* minClass = nullptr);
TObject* GetObjectProp(const TObject* instance, const QString& path,
                       const TMetaClass* minClass = nullptr);
// Raises EPropertyError (SInvalidPropertyValue) when value is not of the property's class.
void SetObjectProp(TObject* instance, const TPropInfo* prop, TObject* value);
void SetObjectProp(TObject* instance, const QString& path, TObject* value);

Variant GetVariantProp(const TObject* instance, const QString& path);
void SetVariantProp(TObject* instance, const QString& path, const Variant& value);
// Any property but an object or an event, as a variant: enumerations and sets as their
// text unless preferStrings is false, booleans as booleans. The setter takes text or
// numbers for enumerations and sets.
Variant GetPropValue(const TObject* instance, const QString& path, bool preferStrings = true);
void SetPropValue(TObject* instance, const QString& path, const Variant& value);

bool IsStoredProp(const TObject* instance, const TPropInfo* prop);
bool IsStoredProp(const TObject* instance, const QString& path);
bool IsDefaultPropertyValue(const TObject* instance, const TPropInfo* prop);

QString GetEnumName(const TEnumTypeInfo& type, int64_t value);
int GetEnumValue(const TEnumTypeInfo& type, const QString& name);
QString SetToString(const TSetTypeInfo& type, uint64_t value, bool brackets = false);
// Raises EPropertyError (SInvalidPropertyElement) for a name that is no member.
uint64_t StringToSet(const TSetTypeInfo& type, const QString& value);

// --- Builders -------------------------------------------------------------------------

namespace typinfo_detail {

template <typename C>
C* Downcast(const TObject* instance) {
  static_assert(std::is_base_of_v<TObject, C>, "published properties belong to TObject classes");
  return const_cast<C*>(static_cast<const C*>(instance));
}

template <typename C, typename F>
using GetterResult = std::remove_cvref_t<std::invoke_result_t<F C::*, C&>>;

template <typename T>
struct SetMember {};
template <typename E>
struct SetMember<TSet<E>> {
  using Type = E;
};

// The untyped form of a value (ordinals as int64, objects as TObject*), and back.
template <typename V, typename U>
V ToStorage(const U& value) {
  if constexpr (!std::is_same_v<V, int64_t>) return V(value);
  else if constexpr (std::is_same_v<U, QChar>) return int64_t(value.unicode());
  else if constexpr (requires { value.ToInt(); }) return int64_t(value.ToInt());
  else return int64_t(value);
}

[[noreturn]] void RaiseClassMismatch(const QString& propName);

template <typename V, typename U>
U FromStorage(const V& value, const QString& propName) {
  if constexpr (std::is_same_v<V, int64_t>) {
    if constexpr (requires { U::FromInt(0); }) return U::FromInt(uint64_t(value));
    else if constexpr (std::is_same_v<U, bool>) return value != 0;
    else if constexpr (std::is_same_v<U, QChar>) return QChar(char16_t(value));
    else return static_cast<U>(value);
  } else if constexpr (std::is_pointer_v<U>) {
    auto* typed = dynamic_cast<U>(value);
    if (value && !typed) RaiseClassMismatch(propName);
    return typed;
  } else {
    return U(value);
  }
}

template <typename V, typename C, typename F>
std::function<V(const TObject*)> MakeGetter(F C::*getter) {
  return [getter](const TObject* instance) {
    return ToStorage<V>(std::invoke(getter, Downcast<C>(instance)));
  };
}

template <typename V, typename U, typename C, typename F>
std::function<void(TObject*, const V&)> MakeSetter(const QString& name, F C::*setter) {
  return [setter, name](TObject* instance, const V& value) {
    std::invoke(setter, Downcast<C>(instance), FromStorage<V, U>(value, name));
  };
}

template <typename V, typename U>
std::function<void(TObject*, const V&)> MakeSetter(const QString&, std::nullptr_t) {
  return {};
}

}  // namespace typinfo_detail

// Sets the stream attributes of a property as it is published; see the header comment.
template <typename P, typename U>
class TPropBuilder {
public:
  using ValueType = U;

  template <typename G, typename S, typename D>
  TPropBuilder(const char* name, const TTypeInfo& type, G getter, S setter, D defaultValue) {
    const QString propName = QString::fromLatin1(name);
    using V = typename P::ValueType;
    prop_ = std::make_shared<P>(propName, type, typinfo_detail::MakeGetter<V>(getter),
                                typinfo_detail::MakeSetter<V, U>(propName, setter),
                                std::move(defaultValue));
  }

  TPropBuilder&& Default(const U& value) && {
    prop_->default_ = typinfo_detail::ToStorage<typename P::ValueType>(value);
    return std::move(*this);
  }
  TPropBuilder&& NoDefault() && {
    prop_->default_.reset();
    return std::move(*this);
  }
  TPropBuilder&& Stored(bool stored) && {
    prop_->stored_ = [stored](const TObject*) { return stored; };
    return std::move(*this);
  }
  template <typename C>
  TPropBuilder&& StoredBy(bool (C::*predicate)() const) && {
    prop_->stored_ = [predicate](const TObject* instance) {
      return (typinfo_detail::Downcast<C>(instance)->*predicate)();
    };
    return std::move(*this);
  }
  // An integer type that names some of its values (a colour).
  TPropBuilder&& OfType(const TIntegerTypeInfo& type) && {
    prop_->type_ = &type;
    return std::move(*this);
  }

  operator std::shared_ptr<const TPropInfo>() && { return std::move(prop_); }

private:
  std::shared_ptr<P> prop_;
};

template <typename C, typename F, typename S = std::nullptr_t>
auto IntProp(const char* name, F C::*getter, S setter = nullptr) {
  return TPropBuilder<TOrdPropInfo, int>(name, IntegerTypeInfo(), getter, setter, std::nullopt);
}

template <typename C, typename F, typename S = std::nullptr_t>
auto Int64Prop(const char* name, F C::*getter, S setter = nullptr) {
  return TPropBuilder<TOrdPropInfo, int64_t>(name, Int64TypeInfo(), getter, setter, std::nullopt);
}

template <typename C, typename F, typename S = std::nullptr_t>
auto BoolProp(const char* name, F C::*getter, S setter = nullptr) {
  return TPropBuilder<TOrdPropInfo, bool>(name, BooleanTypeInfo(), getter, setter, std::nullopt);
}

template <typename C, typename F, typename S = std::nullptr_t>
auto CharProp(const char* name, F C::*getter, S setter = nullptr) {
  return TPropBuilder<TOrdPropInfo, QChar>(name, WideCharTypeInfo(), getter, setter, std::nullopt);
}

template <typename C, typename F, typename S = std::nullptr_t>
auto EnumProp(const char* name, F C::*getter, S setter = nullptr) {
  using E = typinfo_detail::GetterResult<C, F>;
  return TPropBuilder<TOrdPropInfo, E>(name, EnumTypeInfo<E>(), getter, setter, std::nullopt);
}

template <typename C, typename F, typename S = std::nullptr_t>
auto SetProp(const char* name, F C::*getter, S setter = nullptr) {
  using Set = typinfo_detail::GetterResult<C, F>;
  using E = typename typinfo_detail::SetMember<Set>::Type;
  return TPropBuilder<TOrdPropInfo, Set>(name, SetTypeInfo<E>(), getter, setter, std::nullopt);
}

template <typename C, typename F, typename S = std::nullptr_t>
auto FloatProp(const char* name, F C::*getter, S setter = nullptr) {
  return TPropBuilder<TFloatPropInfo, double>(name, DoubleTypeInfo(), getter, setter, 0.0);
}

template <typename C, typename F, typename S = std::nullptr_t>
auto StrProp(const char* name, F C::*getter, S setter = nullptr) {
  return TPropBuilder<TStrPropInfo, QString>(name, StringTypeInfo(), getter, setter, QString());
}

template <typename C, typename F, typename S = std::nullptr_t>
auto VariantProp(const char* name, F C::*getter, S setter = nullptr) {
  return TPropBuilder<TVariantPropInfo, Variant>(name, VariantTypeInfo(), getter, setter, Variant());
}

// An object the instance owns (a font, a collection, strings) or refers to (a component,
// which streams write by name).
template <typename C, typename F, typename S = std::nullptr_t>
auto ObjectProp(const char* name, F C::*getter, S setter = nullptr) {
  using Pointer = typinfo_detail::GetterResult<C, F>;
  using T = std::remove_cv_t<std::remove_pointer_t<Pointer>>;
  return TPropBuilder<TClassPropInfo, T*>(name, ClassTypeInfo<T>(), getter, setter, nullptr);
}

template <typename C, typename F, typename S = std::nullptr_t>
auto EventProp(const char* name, F C::*getter, S setter = nullptr) {
  using Event = typinfo_detail::GetterResult<C, F>;
  return TPropBuilder<TEventPropInfo<Event>, Event>(name, MethodTypeInfo(), getter, setter,
                                                    std::optional<Event>(Event()));
}

}  // namespace quil
