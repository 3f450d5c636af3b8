#include "framework/db/DataTypes.h"

#include <QByteArray>
#include <new>

#include "framework/rtl/Currency.h"
#include "framework/rtl/TypInfo.h"
#include "framework/rtl/Variants.h"

namespace quil {

const TEnumTypeInfo& TypeInfo(TFieldType) {
  static const TEnumTypeInfo info(
      "TFieldType",
      {"ftUnknown", "ftString", "ftSmallint", "ftInteger", "ftWord", "ftBoolean", "ftFloat",
       "ftCurrency", "ftBCD", "ftDate", "ftTime", "ftDateTime", "ftBytes", "ftVarBytes",
       "ftAutoInc", "ftBlob", "ftMemo", "ftGraphic", "ftFmtMemo", "ftParadoxOle", "ftDBaseOle",
       "ftTypedBinary", "ftCursor", "ftFixedChar", "ftWideString", "ftLargeint", "ftADT",
       "ftArray", "ftReference", "ftDataSet", "ftOraBlob", "ftOraClob", "ftVariant",
       "ftInterface", "ftIDispatch", "ftGuid", "ftTimeStamp", "ftFMTBcd", "ftFixedWideChar",
       "ftWideMemo", "ftOraTimeStamp", "ftOraInterval", "ftLongWord", "ftShortint", "ftByte",
       "ftExtended", "ftConnection", "ftParams", "ftStream", "ftTimeStampOffset", "ftObject",
       "ftSingle"});
  return info;
}

QString FieldTypeName(TFieldType type) { return TypeInfo(type).NameOf(type).mid(2); }

const TEnumTypeInfo& TypeInfo(TFieldKind) {
  static const TEnumTypeInfo info(
      "TFieldKind", {"fkData", "fkCalculated", "fkLookup", "fkInternalCalc", "fkAggregate"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TDataSetState) {
  static const TEnumTypeInfo info(
      "TDataSetState",
      {"dsInactive", "dsBrowse", "dsEdit", "dsInsert", "dsSetKey", "dsCalcFields", "dsFilter",
       "dsNewValue", "dsOldValue", "dsCurValue", "dsBlockRead", "dsInternalCalc", "dsOpening"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TFilterOption) {
  static const TEnumTypeInfo info("TFilterOption", {"foCaseInsensitive", "foNoPartialCompare"});
  return info;
}

bool IsEditState(TDataSetState state) {
  return state == dsEdit || state == dsInsert || state == dsSetKey;
}

TNativeKind NativeKindOf(TFieldType type) {
  switch (type) {
    case ftSmallint: case ftInteger: case ftWord: case ftAutoInc: case ftShortint: case ftByte:
      return TNativeKind::Int32;
    case ftLargeint: case ftLongWord:
      return TNativeKind::Int64;
    case ftFloat: case ftCurrency: case ftSingle: case ftExtended: case ftFMTBcd: case ftDate:
    case ftTime: case ftDateTime: case ftTimeStamp: case ftOraTimeStamp: case ftTimeStampOffset:
      return TNativeKind::Double;
    case ftBCD:
      return TNativeKind::Currency;
    case ftBoolean:
      return TNativeKind::Boolean;
    case ftString: case ftFixedChar: case ftWideString: case ftFixedWideChar: case ftGuid:
    case ftMemo: case ftWideMemo: case ftFmtMemo: case ftOraClob:
      return TNativeKind::String;
    case ftBytes: case ftVarBytes: case ftBlob: case ftGraphic: case ftTypedBinary:
    case ftParadoxOle: case ftDBaseOle: case ftOraBlob:
      return TNativeKind::Bytes;
    case ftVariant:
      return TNativeKind::Variant;
    default:
      return TNativeKind::None;
  }
}

Variant NativeToVariant(TNativeKind kind, const void* data) {
  switch (kind) {
    case TNativeKind::Int32: return Variant(*static_cast<const int32_t*>(data));
    case TNativeKind::Int64: return Variant(static_cast<long long>(*static_cast<const int64_t*>(data)));
    case TNativeKind::Double: return Variant(*static_cast<const double*>(data));
    case TNativeKind::Currency: return Variant(*static_cast<const Currency*>(data));
    case TNativeKind::Boolean: return Variant(*static_cast<const bool*>(data));
    case TNativeKind::String: return Variant(*static_cast<const QString*>(data));
    case TNativeKind::Bytes: return Variant(QString::fromLatin1(*static_cast<const QByteArray*>(data)));
    case TNativeKind::Variant: return *static_cast<const Variant*>(data);
    case TNativeKind::None: break;
  }
  return Null();
}

void VariantToNative(TNativeKind kind, const Variant& value, void* data) {
  switch (kind) {
    case TNativeKind::Int32: *static_cast<int32_t*>(data) = value.AsInteger(); break;
    case TNativeKind::Int64: *static_cast<int64_t*>(data) = value.AsInt64(); break;
    case TNativeKind::Double: *static_cast<double*>(data) = value.AsDouble(); break;
    case TNativeKind::Currency: *static_cast<Currency*>(data) = value.AsCurrency(); break;
    case TNativeKind::Boolean: *static_cast<bool*>(data) = value.AsBoolean(); break;
    case TNativeKind::String: *static_cast<QString*>(data) = value.AsString(); break;
    case TNativeKind::Bytes: *static_cast<QByteArray*>(data) = value.AsString().toLatin1(); break;
    case TNativeKind::Variant: *static_cast<Variant*>(data) = value; break;
    case TNativeKind::None: break;
  }
}

TNativeValue::TNativeValue(TNativeKind kind) : kind_(kind) {
  static_assert(sizeof(Variant) <= sizeof(storage_) && sizeof(QString) <= sizeof(storage_),
                "the holder must fit every native form");
  switch (kind_) {
    case TNativeKind::String: new (storage_) QString(); break;
    case TNativeKind::Bytes: new (storage_) QByteArray(); break;
    case TNativeKind::Variant: new (storage_) Variant(); break;
    case TNativeKind::Currency: new (storage_) Currency(); break;
    default: new (storage_) int64_t(0); break;
  }
}

TNativeValue::~TNativeValue() {
  switch (kind_) {
    case TNativeKind::String: static_cast<QString*>(Data())->~QString(); break;
    case TNativeKind::Bytes: static_cast<QByteArray*>(Data())->~QByteArray(); break;
    case TNativeKind::Variant: static_cast<Variant*>(Data())->~Variant(); break;
    default: break;
  }
}

}  // namespace quil

#include "framework/rtl/Component.h"
#include "framework/rtl/Exceptions.h"

namespace quil {

void CopyNative(TNativeKind kind, const void* source, void* dest) {
  switch (kind) {
    case TNativeKind::Int32: *static_cast<int32_t*>(dest) = *static_cast<const int32_t*>(source); break;
    case TNativeKind::Int64: *static_cast<int64_t*>(dest) = *static_cast<const int64_t*>(source); break;
    case TNativeKind::Double: *static_cast<double*>(dest) = *static_cast<const double*>(source); break;
    case TNativeKind::Currency: *static_cast<Currency*>(dest) = *static_cast<const Currency*>(source); break;
    case TNativeKind::Boolean: *static_cast<bool*>(dest) = *static_cast<const bool*>(source); break;
    case TNativeKind::String: *static_cast<QString*>(dest) = *static_cast<const QString*>(source); break;
    case TNativeKind::Bytes: *static_cast<QByteArray*>(dest) = *static_cast<const QByteArray*>(source); break;
    case TNativeKind::Variant: *static_cast<Variant*>(dest) = *static_cast<const Variant*>(source); break;
    case TNativeKind::None: break;
  }
}

void DatabaseError(const QString& message, const TComponent* component) {
  if (component && !component->Name().isEmpty())
    throw EDatabaseError(component->Name() + QStringLiteral(": ") + message);
  throw EDatabaseError(message);
}

}  // namespace quil
