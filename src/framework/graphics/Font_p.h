#pragma once
// The Qt face of a TFont, made once per change of the font.

#include <QFont>
#include <optional>

#include "framework/graphics/Font.h"

namespace quil {

class TFontPrivate {
public:
  // The QFont that paints this font; built on first use after a change.
  static const QFont& QtFont(const TFont& font);
  void Invalidate() { cached_.reset(); }

private:
  std::optional<QFont> cached_;
};

}  // namespace quil
