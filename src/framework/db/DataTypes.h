#pragma once
// The enumerations and small types shared by the data classes, and the native form in
// which a field's value travels between a field and its data set.

#include <QString>
#include <cstdint>
#include <exception>
#include <utility>
#include <vector>

#include "framework/rtl/Sets.h"

namespace quil {

class TEnumTypeInfo;
class Variant;

// The order is fixed: streams and published properties store the ordinals.
enum TFieldType {
  ftUnknown, ftString, ftSmallint, ftInteger, ftWord, ftBoolean, ftFloat, ftCurrency, ftBCD,
  ftDate, ftTime, ftDateTime, ftBytes, ftVarBytes, ftAutoInc, ftBlob, ftMemo, ftGraphic,
  ftFmtMemo, ftParadoxOle, ftDBaseOle, ftTypedBinary, ftCursor, ftFixedChar, ftWideString,
  ftLargeint, ftADT, ftArray, ftReference, ftDataSet, ftOraBlob, ftOraClob, ftVariant,
  ftInterface, ftIDispatch, ftGuid, ftTimeStamp, ftFMTBcd, ftFixedWideChar, ftWideMemo,
  ftOraTimeStamp, ftOraInterval, ftLongWord, ftShortint, ftByte, ftExtended, ftConnection,
  ftParams, ftStream, ftTimeStampOffset, ftObject, ftSingle
};
const TEnumTypeInfo& TypeInfo(TFieldType);
// The type's name without its prefix ("Integer"), as messages show it.
QString FieldTypeName(TFieldType type);

enum TFieldKind { fkData, fkCalculated, fkLookup, fkInternalCalc, fkAggregate };
const TEnumTypeInfo& TypeInfo(TFieldKind);

// Automatic fields come and go with the data set's opening; persistent ones stay.
enum TFieldLifeCycle { lcAutomatic, lcPersistent };
using TFieldLifeCycles = TSet<TFieldLifeCycle>;

enum TDataSetState {
  dsInactive, dsBrowse, dsEdit, dsInsert, dsSetKey, dsCalcFields, dsFilter, dsNewValue,
  dsOldValue, dsCurValue, dsBlockRead, dsInternalCalc, dsOpening
};
const TEnumTypeInfo& TypeInfo(TDataSetState);
bool IsEditState(TDataSetState state);  // dsEdit, dsInsert, dsSetKey

enum TDataEvent {
  deFieldChange, deRecordChange, deDataSetChange, deDataSetScroll, deLayoutChange,
  deUpdateRecord, deUpdateState, deCheckBrowseMode, dePropertyChange, deFieldListChange,
  deFocusControl, deParentScroll, deConnectChange, deReconcileError, deDisabledStateChange
};

enum TGetMode { gmCurrent, gmNext, gmPrior };
enum TGetResult { grOK, grBOF, grEOF, grError };
enum TBookmarkFlag { bfCurrent, bfBOF, bfEOF, bfInserted };

enum TResyncModeMember { rmExact, rmCenter };
using TResyncMode = TSet<TResyncModeMember>;

enum TLocateOption { loCaseInsensitive, loPartialKey };
using TLocateOptions = TSet<TLocateOption>;

enum TFilterOption { foCaseInsensitive, foNoPartialCompare };
using TFilterOptions = TSet<TFilterOption>;
const TEnumTypeInfo& TypeInfo(TFilterOption);

// A record buffer is an opaque block that the descendant lays out; the base class only
// passes it around. A bookmark is the descendant's identity of a record.
using TRecordBuffer = uint8_t*;
using TBookmark = std::vector<uint8_t>;

// The C++ type that GetFieldData and SetFieldData exchange for a field, by data type:
//   Int32: int32_t     ftSmallint ftInteger ftWord ftAutoInc ftShortint ftByte
//   Int64: int64_t     ftLargeint ftLongWord
//   Double: double     ftFloat ftCurrency ftSingle ftExtended ftFMTBcd, and as a
//                      TDateTime ftDate ftTime ftDateTime ftTimeStamp ftOraTimeStamp
//                      ftTimeStampOffset (the moment on the clock of its own zone)
//   Currency: Currency ftBCD
//   Boolean: bool      ftBoolean
//   String: QString    ftString ftFixedChar ftWideString ftFixedWideChar ftGuid ftMemo
//                      ftWideMemo ftFmtMemo ftOraClob
//   Bytes: QByteArray  ftBytes ftVarBytes ftBlob ftGraphic ftTypedBinary ftParadoxOle
//                      ftDBaseOle ftOraBlob
//   Variant: Variant   ftVariant
// Other types have no native form (None) and hold no value; the structured ones
// (ftADT, ftArray) hold theirs in their children.
enum class TNativeKind { None, Int32, Int64, Double, Currency, Boolean, String, Bytes, Variant };
TNativeKind NativeKindOf(TFieldType type);

// The native value behind `data` as a variant; Bytes become their text as Latin-1.
Variant NativeToVariant(TNativeKind kind, const void* data);
// Writes `value` converted to the native form; raises EVariantError when it cannot be.
void VariantToNative(TNativeKind kind, const Variant& value, void* data);
// A native value holder for one field's value, for code that handles any field.
class TNativeValue {
public:
  explicit TNativeValue(TNativeKind kind);
  ~TNativeValue();
  TNativeValue(const TNativeValue&) = delete;
  TNativeValue& operator=(const TNativeValue&) = delete;

  void* Data() { return storage_; }
  const void* Data() const { return storage_; }

private:
  TNativeKind kind_;
  alignas(16) unsigned char storage_[48];
};

}  // namespace quil

namespace quil {

class TComponent;

// Copies a native value of the kind from `source` to `dest`.
void CopyNative(TNativeKind kind, const void* source, void* dest);

// Raises EDatabaseError; a named component prefixes its name ("Orders: ..."), so that
// the user knows which data set failed.
[[noreturn]] void DatabaseError(const QString& message, const TComponent* component);

}  // namespace quil

namespace quil {

// Runs a cleanup when the scope ends, the protected block's finally part. A cleanup that
// raises while another exception unwinds is dropped, so the first failure wins.
template <typename F>
class TFinally {
public:
  explicit TFinally(F cleanup) : cleanup_(std::move(cleanup)), exceptions_(std::uncaught_exceptions()) {}
  TFinally(const TFinally&) = delete;
  TFinally& operator=(const TFinally&) = delete;
  ~TFinally() noexcept(false) {
    if (std::uncaught_exceptions() == exceptions_) {
      cleanup_();
      return;
    }
    try {
      cleanup_();
    } catch (...) {
    }
  }

private:
  F cleanup_;
  int exceptions_;
};

}  // namespace quil
