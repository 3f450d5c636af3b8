#pragma once
// The Qt side of the style services: the QStyle that draws themed elements and the
// palette it draws them with.

#include <QPalette>

#include "framework/graphics/StyleServices.h"

class QStyle;

namespace quil {

// Qt's "Fusion" style, the same on every machine; owned by the application object.
QStyle* ElementStyle();
// The palette of style: the application's for the system style, else its scheme's.
QPalette StylePalette(const TCustomStyleServices& style);

}  // namespace quil
