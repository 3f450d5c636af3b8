// Bookmarks of TDataSet: the descendant's identity of the active record, and the way
// back to it.

#include "framework/db/DataSet.h"

namespace quil {

bool TDataSet::BookmarkAvailable() const {
  return !IsEmpty() && !uniDirectional_ && (state_ == dsBrowse || state_ == dsEdit || state_ == dsInsert) &&
         GetBookmarkFlag(ActiveBuffer()) == bfCurrent;
}

TBookmark TDataSet::GetBookmark() const {
  if (!BookmarkAvailable()) return {};
  TBookmark bookmark(static_cast<size_t>(bookmarkSize_));
  GetBookmarkData(ActiveBuffer(), bookmark.data());
  return bookmark;
}

void TDataSet::GotoBookmark(const TBookmark& bookmark) {
  if (bookmark.empty()) return;
  CheckBrowseMode();
  DoBeforeScroll();
  InternalGotoBookmark(bookmark.data());
  Resync({rmExact, rmCenter});
  DoAfterScroll();
}

}  // namespace quil
