#pragma once
// The record buffer of TCustomClientDataSet, shared by the files that implement it.

#include <cstddef>
#include <memory>
#include <vector>

#include "framework/db/ClientDataSet.h"

namespace quil {

// One record buffer: the row it shows and, while the row is edited or inserted, the
// values being written, which reach the columns only at Post.
class TCustomClientDataSet::TRecord {
public:
  // An inserted record: the row it stands before.
  int32_t Row() const { return row_; }
  void SetRow(int32_t row) {
    row_ = row;
    Sync();
  }
  TBookmarkFlag Flag() const { return flag_; }
  void SetFlag(TBookmarkFlag flag) {
    flag_ = flag;
    Sync();
  }
  // The values being written, one per column; null while none are.
  std::vector<Variant>* Pending() const { return pending_.get(); }
  void SetPending(std::vector<Variant> values) {
    pending_ = std::make_unique<std::vector<Variant>>(std::move(values));
    Sync();
  }
  void DropPending() {
    pending_.reset();
    Sync();
  }
  // The stored row at position of the view whose version is given, as a fetch shows it;
  // the buffer holds no values being written.
  void Show(int32_t row, int32_t position, uint32_t version) {
    row_ = row;
    flag_ = bfCurrent;
    position_ = position;
    version_ = version;
    directRow_ = row;
  }
  // Index in the view, valid while Version is the view's.
  int32_t Position() const { return position_; }
  uint32_t Version() const { return version_; }
  void SetVersion(uint32_t version) { version_ = version; }

private:
  void Sync() { directRow_ = flag_ == bfCurrent && !pending_ ? row_ : -1; }

  // The row whose column values the fields read directly (TDataSet::SetFieldStore),
  // -1 while they must ask the data set; the setters keep it in step. First, since
  // TDataSet finds it at the start of the buffer.
  int32_t directRow_ = -1;
  int32_t row_ = -1;
  TBookmarkFlag flag_ = bfCurrent;
  int32_t position_ = -1;
  uint32_t version_ = 0;
  std::unique_ptr<std::vector<Variant>> pending_;
};

}  // namespace quil
