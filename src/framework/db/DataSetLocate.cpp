// Locate, Lookup and the Find... moves of TDataSet: a walk through the descendant's records, as they come
// through its GetRecord (and so through its filter), testing each in dsFilter.

#include "framework/db/DataSet.h"
#include "framework/db/LocateKeys.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {

void TDataSet::CheckSearchAllowed() const {
  // The search would fetch into the buffer of the record being calculated or filtered,
  // and come back through the same handler.
  if (state_ == dsCalcFields || state_ == dsFilter) DatabaseError(SSearchWhileFetching, this);
}

bool TDataSet::LocateRecord(const QString& keyFields, const Variant& keyValues, TLocateOptions options,
                            bool syncCursor) {
  CheckSearchAllowed();
  CheckBrowseMode();
  const TLocateKeys keys(GetFieldList(keyFields), keyValues, options);
  TRecordBuffer buffer = TempBuffer();
  CursorPosChanged();
  bool found = false;
  {
    TStateScope scope(*this, dsFilter);
    filterBuffer_ = buffer;
    InternalFirst();
    while (!found && GetRecord(buffer, gmNext, true) == grOK) found = keys.Matches();
  }
  // Without a match the cursor is at the end; the next fetch puts it back on a buffer.
  if (!found || !syncCursor) CursorPosChanged();
  return found;
}

bool TDataSet::Locate(const QString& keyFields, const Variant& keyValues, TLocateOptions options) {
  DoBeforeScroll();
  found_ = LocateRecord(keyFields, keyValues, options, true);
  if (found_) {
    Resync({rmExact, rmCenter});
    DoAfterScroll();
  }
  return found_;
}

Variant TDataSet::Lookup(const QString& keyFields, const Variant& keyValues, const QString& resultFields) {
  if (!LocateRecord(keyFields, keyValues, {}, false)) return Null();
  TStateScope scope(*this, dsCalcFields);
  CalculateFields(TempBuffer());
  return FieldValues(resultFields);
}

bool TDataSet::FindRecord(bool restart, bool goForward) {
  CheckBrowseMode();
  found_ = false;
  UpdateCursorPos();
  CursorPosChanged();
  if (restart) {
    if (goForward) First();
    else Last();
    found_ = !IsEmpty();
  } else {
    found_ = MoveBy(goForward ? 1 : -1) != 0;
  }
  return found_;
}

}  // namespace quil
