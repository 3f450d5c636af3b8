#pragma once
#include "framework/rtl/Events.h"
#include "grid/QuilDBGridParts.h"

namespace quil {

// FIXME: gradients replace this with the colors, direction and tiles; until then it has
// nothing to change, so OnChange never fires.
class TQuilDBGridGradient : public TQuilGridPart {
public:
  using TQuilGridPart::TQuilGridPart;
  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }

private:
  TNotifyEvent onChange_;
};

}  // namespace quil
