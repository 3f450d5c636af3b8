#pragma once
#include "grid/QuilDBGridParts.h"

namespace quil {

// FIXME: scrolling replaces this with the scroll bar kinds, thumb style and flat bars.
class TQuilScrollProp : public TQuilGridPart {
public:
  using TQuilGridPart::TQuilGridPart;
  // A grid in stretch mode has no horizontal scroll bar.
  bool AutoStretch() const { return true; }
};

}  // namespace quil
