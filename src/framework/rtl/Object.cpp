#include "framework/rtl/Object.h"

#include <QHash>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

TMetaClass::TMetaClass(const char* name, const TMetaClass* parent)
    : name_(QString::fromLatin1(name)), parent_(parent) {}

bool TMetaClass::InheritsFrom(const TMetaClass& ancestor) const {
  for (const TMetaClass* meta = this; meta; meta = meta->parent_)
    if (meta == &ancestor) return true;
  return false;
}

TObject* TMetaClass::Create(TComponent* owner) const {
  if (!factory_) throw EClassNotFound(QString(SClassNotFound).replace("%s", name_));
  return factory_(owner);
}

TMetaClass&& TMetaClass::Published(std::shared_ptr<const TPropInfo> prop) && {
  props_.push_back(std::move(prop));
  return std::move(*this);
}

int TMetaClass::PropertyCount() const {
  return int(props_.size()) + (parent_ ? parent_->PropertyCount() : 0);
}

const TPropInfo* TMetaClass::Property(int index) const {
  const int inherited = parent_ ? parent_->PropertyCount() : 0;
  if (index < inherited) return parent_->Property(index);
  return props_.at(size_t(index - inherited)).get();
}

const TPropInfo* TMetaClass::FindProperty(const QString& name) const {
  for (const TMetaClass* meta = this; meta; meta = meta->parent_)
    for (const auto& prop : meta->props_)
      if (prop->Name().compare(name, Qt::CaseInsensitive) == 0) return prop.get();
  return nullptr;
}

const TMetaClass& TObject::StaticClass() {
  static const TMetaClass meta("TObject", nullptr);
  return meta;
}

const TMetaClass& TObject::ClassType() const { return StaticClass(); }

namespace {
QHash<QString, const TMetaClass*>& ClassRegistry() {
  static QHash<QString, const TMetaClass*> registry;
  return registry;
}
}  // namespace

void RegisterClass(const TMetaClass& meta) { ClassRegistry().insert(meta.ClassName().toUpper(), &meta); }

void UnRegisterClass(const TMetaClass& meta) {
  auto& registry = ClassRegistry();
  auto found = registry.find(meta.ClassName().toUpper());
  if (found != registry.end() && found.value() == &meta) registry.erase(found);
}

const TMetaClass* GetClass(const QString& name) { return ClassRegistry().value(name.toUpper(), nullptr); }

const TMetaClass& FindClass(const QString& name) {
  if (const TMetaClass* meta = GetClass(name)) return *meta;
  throw EClassNotFound(QString(SClassNotFound).replace("%s", name));
}

}  // namespace quil
