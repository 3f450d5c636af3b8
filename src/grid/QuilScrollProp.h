#pragma once
#include "grid/QuilDBGridParts.h"

namespace quil {

// FIXME: scrolling replaces this with the scroll bar kinds, thumb style and flat bars.
class TQuilScrollProp : public TQuilGridPart {
public:
  using TQuilGridPart::TQuilGridPart;
};

}  // namespace quil
