#pragma once
// The record buffer of TCustomClientDataSet, shared by the files that implement it.

#include <memory>
#include <vector>

#include "framework/db/ClientDataSet.h"

namespace quil {

// One record buffer: the row it shows and, while the row is edited or inserted, the
// values being written, which reach the columns only at Post.
struct TCustomClientDataSet::TRecord {
  int32_t row = -1;  // an inserted record: the row it stands before
  TBookmarkFlag flag = bfCurrent;
  int32_t position = -1;  // index in the view, valid while version is the view's
  uint32_t version = 0;
  std::unique_ptr<std::vector<Variant>> pending;
};

}  // namespace quil
