#pragma once
#include "grid/QuilDBGridParts.h"

namespace quil {

// FIXME: layout persistence replaces this with the stored layout, its storage and the
// automatic load and save; until then it is never active.
class TQuilDBGridSettings : public TQuilGridPart {
public:
  using TQuilGridPart::TQuilGridPart;
  virtual bool Active() const { return false; }
  // Marked by Loaded; the first activation of the link loads the layout once.
  bool AutoLoadPending() const { return autoLoadPending_; }
  void SetAutoLoadPending(bool pending) { autoLoadPending_ = pending; }
  virtual void AutoLoadLayout() {}
  virtual void AutoSaveLayout() {}

private:
  bool autoLoadPending_ = false;
};

}  // namespace quil
