#pragma once
// TBrush: how a canvas fills areas. bsClear leaves the background as it is, also
// behind text.

#include "framework/graphics/Colors.h"
#include "framework/graphics/GraphicsObject.h"

namespace quil {

enum TBrushStyle {
  bsSolid, bsClear, bsHorizontal, bsVertical, bsFDiagonal, bsBDiagonal, bsCross, bsDiagCross
};

class TBrush : public TGraphicsObject {
public:
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  void Assign(const TPersistent* source) override;

  TColor Color() const { return color_; }
  // Setting a color on a clear brush makes it solid, as the framework's brush does.
  void SetColor(TColor color);
  TBrushStyle Style() const { return style_; }
  void SetStyle(TBrushStyle style);

private:
  TColor color_ = clWhite;
  TBrushStyle style_ = bsSolid;
};

}  // namespace quil
