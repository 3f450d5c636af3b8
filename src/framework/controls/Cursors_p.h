#pragma once
// The framework's cursor numbers as Qt's cursor shapes.

#include <Qt>

#include "framework/controls/Controls.h"

namespace quil {

Qt::CursorShape CursorShapeOf(TCursor cursor);

}  // namespace quil
