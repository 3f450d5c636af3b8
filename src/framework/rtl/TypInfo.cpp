#include "framework/rtl/TypInfo.h"

#include <QStringList>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

QString SInvalidPropertyType = QStringLiteral("Invalid property type: %s");
QString SInvalidPropertyElement = QStringLiteral("Invalid property element: %s");
QString SReadOnlyProperty = QStringLiteral("Property is read-only");

// --- Type information -----------------------------------------------------------------

std::optional<QString> TIntegerTypeInfo::IntToIdent(int64_t value) const {
  return toIdent_ ? toIdent_(value) : std::nullopt;
}

std::optional<int64_t> TIntegerTypeInfo::IdentToInt(const QString& ident) const {
  return fromIdent_ ? fromIdent_(ident) : std::nullopt;
}

TEnumTypeInfo::TEnumTypeInfo(QString name, std::initializer_list<const char*> names)
    : TTypeInfo(tkEnumeration, std::move(name)) {
  for (const char* member : names) names_.push_back(QString::fromLatin1(member));
}

QString TEnumTypeInfo::NameOf(int64_t ordinal) const {
  if (ordinal < 0 || ordinal >= Count()) return QString();
  return names_[size_t(ordinal)];
}

int TEnumTypeInfo::ValueOf(const QString& name) const {
  for (int ordinal = 0; ordinal < Count(); ++ordinal)
    if (names_[size_t(ordinal)].compare(name, Qt::CaseInsensitive) == 0) return ordinal;
  return -1;
}

const TIntegerTypeInfo& IntegerTypeInfo() {
  static const TIntegerTypeInfo info(tkInteger, QStringLiteral("Integer"));
  return info;
}

const TIntegerTypeInfo& Int64TypeInfo() {
  static const TIntegerTypeInfo info(tkInt64, QStringLiteral("Int64"));
  return info;
}

const TEnumTypeInfo& BooleanTypeInfo() {
  static const TEnumTypeInfo info(QStringLiteral("Boolean"), {"False", "True"});
  return info;
}

const TTypeInfo& DoubleTypeInfo() {
  static const TTypeInfo info(tkFloat, QStringLiteral("Double"));
  return info;
}

const TTypeInfo& StringTypeInfo() {
  static const TTypeInfo info(tkUString, QStringLiteral("string"));
  return info;
}

const TTypeInfo& WideCharTypeInfo() {
  static const TTypeInfo info(tkWChar, QStringLiteral("Char"));
  return info;
}

const TTypeInfo& VariantTypeInfo() {
  static const TTypeInfo info(tkVariant, QStringLiteral("Variant"));
  return info;
}

const TTypeInfo& MethodTypeInfo() {
  static const TTypeInfo info(tkMethod, QStringLiteral("TMethod"));
  return info;
}

void TPropInfo::RaiseReadOnly() const { throw EPropertyError(SReadOnlyProperty); }

void typinfo_detail::RaiseClassMismatch(const QString& propName) {
  throw EPropertyError(SInvalidPropertyValue);
}

// --- Paths ----------------------------------------------------------------------------

namespace {

struct TPropTarget {
  TObject* instance = nullptr;
  const TPropInfo* prop = nullptr;
  bool brokenPath = false;  // a name before a dot was no object property, or held nil
};

TPropTarget Resolve(const TObject* instance, const QString& path) {
  TObject* current = const_cast<TObject*>(instance);
  qsizetype start = 0;
  while (current) {
    const qsizetype dot = path.indexOf(QLatin1Char('.'), start);
    const QString name = path.mid(start, dot < 0 ? -1 : dot - start);
    const TPropInfo* prop = current->ClassType().FindProperty(name);
    if (dot < 0) return {current, prop, false};
    auto* objectProp = dynamic_cast<const TClassPropInfo*>(prop);
    if (!objectProp) return {nullptr, nullptr, prop != nullptr};
    current = objectProp->Get(current);
    start = dot + 1;
  }
  return {nullptr, nullptr, true};
}

TPropTarget Require(const TObject* instance, const QString& path) {
  TPropTarget target = Resolve(instance, path);
  if (target.prop) return target;
  if (target.brokenPath) throw EPropertyError(SInvalidPropertyPath);
  throw EPropertyError(Format(SUnknownProperty, {path}));
}

template <typename P>
const P& As(const TPropInfo* prop) {
  auto* typed = dynamic_cast<const P*>(prop);
  if (!typed) throw EPropertyError(Format(SInvalidPropertyType, {prop->Name()}));
  return *typed;
}

template <typename T>
const T& TypeOf(const TPropInfo* prop) {
  auto* typed = dynamic_cast<const T*>(&prop->PropType());
  if (!typed) throw EPropertyError(Format(SInvalidPropertyType, {prop->Name()}));
  return *typed;
}

}  // namespace

const TPropInfo* GetPropInfo(const TMetaClass& meta, const QString& path) {
  const TMetaClass* current = &meta;
  const QStringList names = path.split(QLatin1Char('.'));
  for (qsizetype index = 0; index < names.size(); ++index) {
    const TPropInfo* prop = current->FindProperty(names[index]);
    if (!prop || index == names.size() - 1) return prop;
    auto* classType = dynamic_cast<const TClassTypeInfo*>(&prop->PropType());
    if (!classType) return nullptr;
    current = &classType->ClassType();
  }
  return nullptr;
}

const TPropInfo* GetPropInfo(const TObject* instance, const QString& path) {
  return instance ? Resolve(instance, path).prop : nullptr;
}

bool IsPublishedProp(const TMetaClass& meta, const QString& path) {
  return GetPropInfo(meta, path) != nullptr;
}

bool IsPublishedProp(const TObject* instance, const QString& path) {
  return GetPropInfo(instance, path) != nullptr;
}

TTypeKind PropType(const TMetaClass& meta, const QString& path) {
  const TPropInfo* prop = GetPropInfo(meta, path);
  if (!prop) throw EPropertyError(Format(SUnknownProperty, {path}));
  return prop->Kind();
}

TTypeKind PropType(const TObject* instance, const QString& path) {
  return Require(instance, path).prop->Kind();
}

bool PropIsType(const TObject* instance, const QString& path, TTypeKind kind) {
  return PropType(instance, path) == kind;
}

// --- Values ---------------------------------------------------------------------------

int64_t GetOrdProp(const TObject* instance, const TPropInfo* prop) {
  return As<TOrdPropInfo>(prop).Get(instance);
}

int64_t GetOrdProp(const TObject* instance, const QString& path) {
  const TPropTarget target = Require(instance, path);
  return GetOrdProp(target.instance, target.prop);
}

void SetOrdProp(TObject* instance, const TPropInfo* prop, int64_t value) {
  As<TOrdPropInfo>(prop).Set(instance, value);
}

void SetOrdProp(TObject* instance, const QString& path, int64_t value) {
  const TPropTarget target = Require(instance, path);
  SetOrdProp(target.instance, target.prop, value);
}

int64_t GetInt64Prop(const TObject* instance, const QString& path) {
  return GetOrdProp(instance, path);
}

void SetInt64Prop(TObject* instance, const QString& path, int64_t value) {
  SetOrdProp(instance, path, value);
}

double GetFloatProp(const TObject* instance, const TPropInfo* prop) {
  return As<TFloatPropInfo>(prop).Get(instance);
}

double GetFloatProp(const TObject* instance, const QString& path) {
  const TPropTarget target = Require(instance, path);
  return GetFloatProp(target.instance, target.prop);
}

void SetFloatProp(TObject* instance, const TPropInfo* prop, double value) {
  As<TFloatPropInfo>(prop).Set(instance, value);
}

void SetFloatProp(TObject* instance, const QString& path, double value) {
  const TPropTarget target = Require(instance, path);
  SetFloatProp(target.instance, target.prop, value);
}

QString GetStrProp(const TObject* instance, const TPropInfo* prop) {
  return As<TStrPropInfo>(prop).Get(instance);
}

QString GetStrProp(const TObject* instance, const QString& path) {
  const TPropTarget target = Require(instance, path);
  return GetStrProp(target.instance, target.prop);
}

void SetStrProp(TObject* instance, const TPropInfo* prop, const QString& value) {
  As<TStrPropInfo>(prop).Set(instance, value);
}

void SetStrProp(TObject* instance, const QString& path, const QString& value) {
  const TPropTarget target = Require(instance, path);
  SetStrProp(target.instance, target.prop, value);
}

QString GetEnumProp(const TObject* instance, const QString& path) {
  const TPropTarget target = Require(instance, path);
  const auto& type = TypeOf<TEnumTypeInfo>(target.prop);
  return type.NameOf(GetOrdProp(target.instance, target.prop));
}

void SetEnumProp(TObject* instance, const QString& path, const QString& value) {
  const TPropTarget target = Require(instance, path);
  const int ordinal = TypeOf<TEnumTypeInfo>(target.prop).ValueOf(value.trimmed());
  if (ordinal < 0) throw EPropertyError(Format(SInvalidPropertyElement, {value}));
  SetOrdProp(target.instance, target.prop, ordinal);
}

QString GetSetProp(const TObject* instance, const QString& path, bool brackets) {
  const TPropTarget target = Require(instance, path);
  const auto& type = TypeOf<TSetTypeInfo>(target.prop);
  return SetToString(type, uint64_t(GetOrdProp(target.instance, target.prop)), brackets);
}

void SetSetProp(TObject* instance, const QString& path, const QString& value) {
  const TPropTarget target = Require(instance, path);
  const uint64_t bits = StringToSet(TypeOf<TSetTypeInfo>(target.prop), value);
  SetOrdProp(target.instance, target.prop, int64_t(bits));
}

TObject* GetObjectProp(const TObject* instance, const TPropInfo* prop, const TMetaClass* minClass) {
  TObject* value = As<TClassPropInfo>(prop).Get(instance);
  if (value && minClass && !value->InheritsFrom(*minClass)) return nullptr;
  return value;
}

TObject* GetObjectProp(const TObject* instance, const QString& path, const TMetaClass* minClass) {
  const TPropTarget target = Require(instance, path);
  return GetObjectProp(target.instance, target.prop, minClass);
}

void SetObjectProp(TObject* instance, const TPropInfo* prop, TObject* value) {
  As<TClassPropInfo>(prop).Set(instance, value);
}

void SetObjectProp(TObject* instance, const QString& path, TObject* value) {
  const TPropTarget target = Require(instance, path);
  SetObjectProp(target.instance, target.prop, value);
}

Variant GetVariantProp(const TObject* instance, const QString& path) {
  const TPropTarget target = Require(instance, path);
  return As<TVariantPropInfo>(target.prop).Get(target.instance);
}

void SetVariantProp(TObject* instance, const QString& path, const Variant& value) {
  const TPropTarget target = Require(instance, path);
  As<TVariantPropInfo>(target.prop).Set(target.instance, value);
}

Variant GetPropValue(const TObject* instance, const QString& path, bool preferStrings) {
  const TPropTarget target = Require(instance, path);
  const TPropInfo* prop = target.prop;
  switch (prop->Kind()) {
    case tkInteger:
      return Variant(int(GetOrdProp(target.instance, prop)));
    case tkInt64:
      return Variant(static_cast<long long>(GetOrdProp(target.instance, prop)));
    case tkWChar:
      return Variant(QString(QChar(char16_t(GetOrdProp(target.instance, prop)))));
    case tkEnumeration:
      if (&prop->PropType() == &BooleanTypeInfo()) return Variant(GetOrdProp(target.instance, prop) != 0);
      if (preferStrings) return Variant(GetEnumProp(target.instance, prop->Name()));
      return Variant(int(GetOrdProp(target.instance, prop)));
    case tkSet:
      if (preferStrings) return Variant(GetSetProp(target.instance, prop->Name()));
      return Variant(static_cast<long long>(GetOrdProp(target.instance, prop)));
    case tkFloat:
      return Variant(GetFloatProp(target.instance, prop));
    case tkUString:
      return Variant(GetStrProp(target.instance, prop));
    case tkVariant:
      return As<TVariantPropInfo>(prop).Get(target.instance);
    default:
      throw EPropertyError(Format(SInvalidPropertyType, {prop->Name()}));
  }
}

void SetPropValue(TObject* instance, const QString& path, const Variant& value) {
  const TPropTarget target = Require(instance, path);
  const TPropInfo* prop = target.prop;
  switch (prop->Kind()) {
    case tkInteger:
    case tkInt64:
      return SetOrdProp(target.instance, prop, value.AsInt64());
    case tkWChar: {
      const QString text = VarToStr(value);
      return SetOrdProp(target.instance, prop, text.isEmpty() ? 0 : text.at(0).unicode());
    }
    case tkEnumeration:
      if (VarIsStr(value)) return SetEnumProp(target.instance, prop->Name(), value.AsString());
      if (&prop->PropType() == &BooleanTypeInfo()) return SetOrdProp(target.instance, prop, value.AsBoolean());
      return SetOrdProp(target.instance, prop, value.AsInt64());
    case tkSet:
      if (VarIsStr(value)) return SetSetProp(target.instance, prop->Name(), value.AsString());
      return SetOrdProp(target.instance, prop, value.AsInt64());
    case tkFloat:
      return SetFloatProp(target.instance, prop, value.AsDouble());
    case tkUString:
      return SetStrProp(target.instance, prop, VarToStr(value));
    case tkVariant:
      return As<TVariantPropInfo>(prop).Set(target.instance, value);
    default:
      throw EPropertyError(Format(SInvalidPropertyType, {prop->Name()}));
  }
}

bool IsStoredProp(const TObject* instance, const TPropInfo* prop) {
  return prop->IsStored(instance);
}

bool IsStoredProp(const TObject* instance, const QString& path) {
  const TPropTarget target = Require(instance, path);
  return target.prop->IsStored(target.instance);
}

bool IsDefaultPropertyValue(const TObject* instance, const TPropInfo* prop) {
  return prop->IsDefaultValue(instance);
}

// --- Names ----------------------------------------------------------------------------

QString GetEnumName(const TEnumTypeInfo& type, int64_t value) { return type.NameOf(value); }

int GetEnumValue(const TEnumTypeInfo& type, const QString& name) { return type.ValueOf(name); }

QString SetToString(const TSetTypeInfo& type, uint64_t value, bool brackets) {
  QStringList members;
  const TEnumTypeInfo& compType = type.CompType();
  for (int ordinal = 0; ordinal < compType.Count(); ++ordinal)
    if (value & (uint64_t{1} << ordinal)) members << compType.NameOf(ordinal);
  const QString text = members.join(QLatin1Char(','));
  return brackets ? QLatin1Char('[') + text + QLatin1Char(']') : text;
}

uint64_t StringToSet(const TSetTypeInfo& type, const QString& value) {
  QString text = value.trimmed();
  if (text.startsWith(QLatin1Char('[')) && text.endsWith(QLatin1Char(']')))
    text = text.mid(1, text.size() - 2);
  uint64_t bits = 0;
  for (const QString& part : text.split(QLatin1Char(','))) {
    const QString name = part.trimmed();
    if (name.isEmpty()) continue;
    const int ordinal = type.CompType().ValueOf(name);
    if (ordinal < 0) throw EPropertyError(Format(SInvalidPropertyElement, {name}));
    bits |= uint64_t{1} << ordinal;
  }
  return bits;
}

}  // namespace quil
