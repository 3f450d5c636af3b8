#pragma once
// TPen: how a canvas draws lines and frames. Mode is the framework's raster operation of
// the pen with the pixels under it; the XOR-like modes work on bitmaps and widgets.

#include "framework/graphics/Colors.h"
#include "framework/graphics/GraphicsObject.h"

namespace quil {

enum TPenStyle {
  psSolid, psDash, psDot, psDashDot, psDashDotDot, psClear, psInsideFrame, psUserStyle, psAlternate
};
enum TPenMode {
  pmBlack, pmWhite, pmNop, pmNot, pmCopy, pmNotCopy, pmMergePenNot, pmMaskPenNot,
  pmMergeNotPen, pmMaskNotPen, pmMerge, pmNotMerge, pmMask, pmNotMask, pmXor, pmNotXor
};

class TPen : public TGraphicsObject {
public:
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  void Assign(const TPersistent* source) override;

  TColor Color() const { return color_; }
  void SetColor(TColor color);
  int Width() const { return width_; }
  void SetWidth(int width);
  TPenStyle Style() const { return style_; }
  void SetStyle(TPenStyle style);
  TPenMode Mode() const { return mode_; }
  void SetMode(TPenMode mode);

private:
  TColor color_ = clBlack;
  int width_ = 1;
  TPenStyle style_ = psSolid;
  TPenMode mode_ = pmCopy;
};

}  // namespace quil
