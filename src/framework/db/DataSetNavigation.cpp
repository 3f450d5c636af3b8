// The record window of TDataSet: its buffers, filling them from the descendant's
// cursor, and moving through the records.

#include <algorithm>
#include <stdexcept>

#include "framework/db/DataSet.h"
#include "framework/db/DataSource.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {

// --- Buffers --------------------------------------------------------------------------

void TDataSet::UpdateBufferCount() {
  if (!IsCursorOpen()) return;
  int count = 1;
  if (!uniDirectional_)
    for (const TDataLink* link : DataLinks()) count = std::max(count, link->BufferCount());
  if (count == bufferCount_) return;
  SetBufListSize(count);
  GetNextRecords();
  GetPriorRecords();
  for (TDataLink* link : DataLinks()) link->UpdateRange();
}

void TDataSet::SetBufListSize(int count) {
  if (count == bufferCount_) return;
  // The buffers once over while they change, and twice again however this ends.
  buffers_.resize(RingSize());
  TFinally mirror([this] {
    const std::vector<TRecordBuffer> ring = buffers_;
    buffers_.insert(buffers_.end(), ring.begin(), ring.end());
  });
  std::rotate(buffers_.begin(), buffers_.begin() + std::ptrdiff_t(firstBuffer_), buffers_.end());
  firstBuffer_ = 0;
  // Shrinking drops records from the front first, so that the active one stays.
  const int dropped = count > 0 ? std::max(0, activeRecord_ - (count - 1)) : recordCount_;
  if (dropped > 0) {
    std::rotate(buffers_.begin(), buffers_.begin() + dropped, buffers_.begin() + recordCount_);
    activeRecord_ -= dropped;
    recordCount_ -= dropped;
    CursorPosChanged();
  }
  recordCount_ = std::min(recordCount_, count);
  activeRecord_ = std::min(activeRecord_, std::max(recordCount_ - 1, 0));
  if (currentRecord_ >= recordCount_) CursorPosChanged();
  const size_t wanted = count > 0 ? size_t(count) + 1 : 0;
  while (buffers_.size() > wanted) {
    DestroyRecordBuffer(buffers_.back());
    buffers_.pop_back();
  }
  buffers_.reserve(wanted);
  while (buffers_.size() < wanted) buffers_.push_back(CreateRecordBuffer());
  bufferCount_ = count;
}

void TDataSet::ClearBuffers() {
  recordCount_ = 0;
  activeRecord_ = 0;
  currentRecord_ = -1;
  bof_ = true;
  eof_ = true;
}

void TDataSet::ActivateBuffers() {
  recordCount_ = 1;
  activeRecord_ = 0;
  currentRecord_ = 0;
  bof_ = false;
  eof_ = false;
}

void TDataSet::ShiftBuffers(int fromIndex, int toIndex) {
  const TRecordBuffer moved = Slot(fromIndex);
  const int step = fromIndex < toIndex ? 1 : -1;
  for (int index = fromIndex; index != toIndex; index += step) SetSlot(index, Slot(index + step));
  SetSlot(toIndex, moved);
}

TRecordBuffer TDataSet::OtherStateBuffer() const {
  switch (state_) {
    case dsBrowse: case dsBlockRead: return IsEmpty() ? nullptr : ActiveBuffer();
    case dsEdit: case dsInsert: case dsNewValue: return ActiveBuffer();
    case dsCalcFields: case dsInternalCalc: return calcBuffer_;
    case dsFilter: return filterBuffer_;
    default: return nullptr;
  }
}

// --- Fetching -------------------------------------------------------------------------

void TDataSet::MoveCursorTo(int index) {
  if (!uniDirectional_) {
    TRecordBuffer buffer = Slot(index);
    switch (GetBookmarkFlag(buffer)) {
      case bfCurrent: case bfInserted: InternalSetToRecord(buffer); break;
      case bfBOF: InternalFirst(); break;
      case bfEOF: InternalLast(); break;
    }
  }
  currentRecord_ = index;
}

void TDataSet::UpdateCursorPos() {
  if (recordCount_ > 0) SetCurrentRecord(activeRecord_);
}

// Always inline, as is MoveForward: a walk runs through both once per record, and for
// its other callers the compiler would keep it out of line, with a frame of its own.
[[gnu::always_inline]] inline bool TDataSet::GetNextRecord() {
  TGetMode mode = gmNext;
  if (recordCount_ > 0) {
    SetCurrentRecord(recordCount_ - 1);
    // The record being inserted is not in the descendant's records yet: the cursor
    // still stands on the record that will follow it.
    if (state_ == dsInsert && currentRecord_ == activeRecord_ && GetBookmarkFlag(ActiveBuffer()) == bfCurrent)
      mode = gmCurrent;
  }
  if (GetRecord(Slot(recordCount_), mode, true) != grOK) {
    CursorPosChanged();
    return false;
  }
  // A full window first: a walk comes here once per record.
  if (recordCount_ == bufferCount_) TurnRingForward();
  else if (recordCount_ == 0) ActivateBuffers();
  else ++recordCount_;
  currentRecord_ = recordCount_ - 1;
  return true;
}

bool TDataSet::GetPriorRecord() {
  CheckBiDirectional();
  if (recordCount_ > 0) SetCurrentRecord(0);
  if (GetRecord(Slot(recordCount_), gmPrior, true) != grOK) {
    CursorPosChanged();
    return false;
  }
  if (recordCount_ == 0) {
    ActivateBuffers();
  } else {
    MoveBuffer(recordCount_, 0);
    if (recordCount_ < bufferCount_) {
      ++recordCount_;
      ++activeRecord_;
    }
  }
  currentRecord_ = 0;
  return true;
}

int TDataSet::GetNextRecords() {
  int fetched = 0;
  while (recordCount_ < bufferCount_ && GetNextRecord()) ++fetched;
  return fetched;
}

int TDataSet::GetPriorRecords() {
  int fetched = 0;
  if (uniDirectional_) return 0;
  while (recordCount_ < bufferCount_ && GetPriorRecord()) ++fetched;
  return fetched;
}

// --- Moving ---------------------------------------------------------------------------

void TDataSet::First() {
  CheckBrowseMode();
  if (uniDirectional_ && !bof_) CheckBiDirectional();
  DoBeforeScroll();
  ClearBuffers();
  TFinally notify([this] {
    bof_ = true;
    DataEvent(deDataSetChange, 0);
    DoAfterScroll();
  });
  InternalFirst();
  GetNextRecords();
}

void TDataSet::Last() {
  CheckBiDirectional();
  CheckBrowseMode();
  DoBeforeScroll();
  ClearBuffers();
  TFinally notify([this] {
    eof_ = true;
    DataEvent(deDataSetChange, 0);
    DoAfterScroll();
  });
  InternalLast();
  GetPriorRecords();
  if (recordCount_ > 0) activeRecord_ = recordCount_ - 1;
}

int TDataSet::MoveBy(int distance) {
  // Only picks the way: with no frame of its own, the step of a walk costs a few tests.
  if (distance == 1 && AtWalkStep()) return StepPastFullWindow();
  return MoveAnyDistance(distance);
}

int TDataSet::MoveAnyDistance(int distance) {
  // A walk with controls disabled browses: CheckBrowseMode would neither notify nor post.
  if (state_ != dsBrowse || !ControlsDisabled()) CheckBrowseMode();
  DoBeforeScroll();
  return MoveScrolled(distance);
}

int TDataSet::MoveScrolled(int distance) {
  if (!((distance > 0 && !eof_) || (distance < 0 && !bof_))) return 0;
  bof_ = false;
  eof_ = false;
  // How far the buffers rotated: a link's rows move by that much plus its own range.
  int scrolled = 0;
  int moved = 0;
  // A window that grew gave its links rows they never had: a rotation cannot say that.
  const int bufferedBefore = recordCount_;
  const auto notify = [&] {
    // Disabled controls hear of neither; the last EnableControls sends a change.
    if (!ControlsDisabled()) {
      if (recordCount_ != bufferedBefore) DataEvent(deDataSetChange, 0);
      else DataEvent(deDataSetScroll, scrolled);
    }
    DoAfterScroll();
  };
  // The finally part by hand: a walk moves once per record, and a guard's bookkeeping
  // of exceptions in flight would cost more than the move itself.
  try {
    moved = distance > 0 ? MoveForward(distance, scrolled) : -MoveBackward(-distance, scrolled);
  } catch (...) {
    try {
      notify();
    } catch (...) {
      // The first failure is the one to report.
    }
    throw;
  }
  notify();
  return moved;
}

// What MoveBy(1) comes to for each record of a walk (AtWalkStep). MoveScrolled would
// keep a count of rows scrolled for links that will not hear of it, and loop; this is
// one fetch and a turn of the ring.
int TDataSet::StepPastFullWindow() {
  DoBeforeScroll();
  // The handler may have moved the data set or enabled its controls.
  if (!AtWalkStep()) [[unlikely]] return MoveScrolled(1);
  bof_ = false;
  bool fetched = false;
  try {
    fetched = GetRecord(Slot(recordCount_), gmNext, true) == grOK;
  } catch (...) {
    try {
      DoAfterScroll();
    } catch (...) {
      // The first failure is the one to report.
    }
    throw;
  }
  if (fetched) [[likely]] {
    TurnRingForward();
  } else {
    CursorPosChanged();
    eof_ = true;
  }
  DoAfterScroll();
  return fetched ? 1 : 0;
}

[[gnu::always_inline]] inline int TDataSet::MoveForward(int distance, int& scrolled) {
  int moved = 0;
  for (; moved < distance; ++moved) {
    if (activeRecord_ < recordCount_ - 1) {
      ++activeRecord_;
      continue;
    }
    const int shift = recordCount_ < bufferCount_ ? 0 : 1;
    if (!GetNextRecord()) {
      eof_ = true;
      break;
    }
    scrolled -= shift;
    if (activeRecord_ < recordCount_ - 1) ++activeRecord_;
  }
  return moved;
}

int TDataSet::MoveBackward(int distance, int& scrolled) {
  int moved = 0;
  for (; moved < distance; ++moved) {
    if (activeRecord_ > 0) {
      --activeRecord_;
      continue;
    }
    const int shift = recordCount_ < bufferCount_ ? 0 : 1;
    if (!GetPriorRecord()) {
      bof_ = true;
      break;
    }
    scrolled += shift;
    if (activeRecord_ > 0) --activeRecord_;
  }
  return moved;
}

void TDataSet::Resync(TResyncMode mode) {
  if (uniDirectional_) return;
  TRecordBuffer spare = Slot(recordCount_);
  if (mode.Contains(rmExact)) {
    CursorPosChanged();
    if (GetRecord(spare, gmCurrent, true) != grOK) DatabaseError(SRecordNotFound, this);
  } else if (GetRecord(spare, gmCurrent, false) != grOK && GetRecord(spare, gmNext, false) != grOK &&
             GetRecord(spare, gmPrior, false) != grOK) {
    ClearBuffers();
    DataEvent(deDataSetChange, 0);
    return;
  }
  int before = mode.Contains(rmCenter) ? (bufferCount_ - 1) / 2 : activeRecord_;
  MoveBuffer(recordCount_, 0);
  ActivateBuffers();
  TFinally notify([this] { DataEvent(deDataSetChange, 0); });
  while (before > 0 && GetPriorRecord()) --before;
  GetNextRecords();
  GetPriorRecords();
}

void TDataSet::Refresh() {
  Fire(BeforeRefresh);
  CheckBrowseMode();
  UpdateCursorPos();
  InternalRefresh();
  Resync({});
  Fire(AfterRefresh);
}

void TDataSet::CheckLinksConsistency() const {
  for (const TDataLink* link : DataLinks()) {
    if (!link->Active() || recordCount_ == 0) continue;
    const int linkRow = activeRecord_ - link->firstRecord_;
    if (link->firstRecord_ < 0 || linkRow < 0 || linkRow >= link->BufferCount())
      throw std::logic_error("a data link's rows do not hold the active record");
    if (link->firstRecord_ + link->RecordCount() > recordCount_)
      throw std::logic_error("a data link's rows reach past the buffered records");
  }
}

}  // namespace quil
