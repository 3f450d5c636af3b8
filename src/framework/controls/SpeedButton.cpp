// TSpeedButton.

#include <algorithm>

#include "framework/controls/Buttons.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/DrawText.h"
#include "framework/graphics/FrameDrawing.h"
#include "framework/graphics/ImageList.h"

namespace quil {

const TMetaClass& TSpeedButton::StaticClass() {
  static const TMetaClass meta = TMetaClass("TSpeedButton", &TGraphicControl::StaticClass());
  return meta;
}

const TMetaClass& TSpeedButton::ClassType() const { return StaticClass(); }

TSpeedButton::TSpeedButton(TComponent* owner) : TGraphicControl(owner), glyph_(std::make_unique<TBitmap>()) {
  SetBounds(0, 0, 23, 22);
  SetControlStyle({csCaptureMouse, csDoubleClicks, csOpaque});
}

TSpeedButton::~TSpeedButton() = default;

void TSpeedButton::SetGlyph(const TBitmap* glyph) {
  glyph_->Assign(glyph);
  glyphs_.reset();
  Invalidate();
}

void TSpeedButton::SetNumGlyphs(int count) {
  count = std::clamp(count, 1, 4);
  if (count == numGlyphs_) return;
  numGlyphs_ = count;
  glyphs_.reset();
  Invalidate();
}

void TSpeedButton::SetLayout(TButtonLayout layout) {
  if (layout == layout_) return;
  layout_ = layout;
  Invalidate();
}

void TSpeedButton::SetSpacing(int spacing) {
  if (spacing == spacing_) return;
  spacing_ = spacing;
  Invalidate();
}

void TSpeedButton::SetFlat(bool flat) {
  if (flat == flat_) return;
  flat_ = flat;
  Invalidate();
}

void TSpeedButton::SetGroupIndex(int index) {
  if (index == groupIndex_) return;
  groupIndex_ = index;
  UpdateExclusive();
}

void TSpeedButton::SetAllowAllUp(bool allow) {
  if (allow == allowAllUp_) return;
  allowAllUp_ = allow;
  UpdateExclusive();
}

void TSpeedButton::SetDown(bool down) {
  if (groupIndex_ == 0) down = false;
  if (down == down_) return;
  // The last button down in a group without AllowAllUp stays down.
  if (down_ && !allowAllUp_) return;
  down_ = down;
  state_ = RestingState();
  Invalidate();
  if (down) UpdateExclusive();
}

TButtonState TSpeedButton::RestingState() const {
  if (!Enabled()) return bsDisabled;
  return down_ ? bsExclusive : bsUp;
}

void TSpeedButton::UpdateExclusive() {
  if (groupIndex_ == 0 || !Parent()) return;
  for (int index = 0; index < Parent()->ControlCount(); ++index) {
    auto* other = dynamic_cast<TSpeedButton*>(Parent()->Controls(index));
    if (!other || other == this || other->groupIndex_ != groupIndex_) continue;
    other->allowAllUp_ = allowAllUp_;
    if (down_ && other->down_) {
      other->down_ = false;
      other->state_ = other->RestingState();
      other->Invalidate();
    }
  }
}

void TSpeedButton::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
  TGraphicControl::MouseDown(button, shift, x, y);
  if (button != mbLeft || !Enabled()) return;
  if (!down_) {
    state_ = bsDown;
    Invalidate();
  }
  dragging_ = true;
}

void TSpeedButton::MouseMove(TShiftState shift, int x, int y) {
  TGraphicControl::MouseMove(shift, x, y);
  if (!dragging_) return;
  // Pressed while the mouse is over the button, as it would be let go there.
  TButtonState state = ClientRect().Contains(Point(x, y)) ? bsDown : down_ ? bsExclusive : bsUp;
  if (state == state_) return;
  state_ = state;
  Invalidate();
}

void TSpeedButton::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
  TGraphicControl::MouseUp(button, shift, x, y);
  if (!dragging_ || button != mbLeft) return;
  dragging_ = false;
  bool inside = ClientRect().Contains(Point(x, y));
  if (inside && groupIndex_ != 0) SetDown(!down_);
  state_ = RestingState();
  Invalidate();
  if (inside) Click();
}

void TSpeedButton::CMMouseEnter(TMessage& message) {
  TGraphicControl::CMMouseEnter(message);
  mouseInControl_ = true;
  if (flat_ && Enabled()) Invalidate();
}

void TSpeedButton::CMMouseLeave(TMessage& message) {
  TGraphicControl::CMMouseLeave(message);
  mouseInControl_ = false;
  if (flat_ && Enabled()) Invalidate();
}

void TSpeedButton::CMEnabledChanged(TMessage& message) {
  TGraphicControl::CMEnabledChanged(message);
  state_ = RestingState();
  Invalidate();
}

int TSpeedButton::GlyphIndex() {
  if (glyph_->Empty()) return -1;
  if (!glyphs_) {
    glyphs_ = std::make_unique<TImageList>(glyph_->Width() / numGlyphs_, glyph_->Height());
    glyphs_->AddMasked(glyph_.get(), glyph_->Canvas()->Pixel(0, glyph_->Height() - 1));
  }
  int index = int(state_);
  return index < glyphs_->Count() ? index : 0;
}

void TSpeedButton::PaintFrame(TRect& face) {
  bool pressed = state_ == bsDown || state_ == bsExclusive;
  Canvas()->FillRect(face);
  if (flat_ && !pressed && !(mouseInControl_ && Enabled())) return;
  if (flat_) {
    DrawEdge(Canvas(), face, pressed ? BDR_SUNKENOUTER : BDR_RAISEDINNER, BF_RECT | BF_ADJUST);
    return;
  }
  DrawFrameControl(Canvas(), face, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_ADJUSTRECT | (pressed ? DFCS_PUSHED : 0));
}

void TSpeedButton::PaintContent(const TRect& face, bool pressed) {
  int glyph = GlyphIndex();
  TSize glyphSize = glyph < 0 ? TSize{0, 0} : TSize{glyphs_->Width(), glyphs_->Height()};
  TSize textSize = Caption().isEmpty() ? TSize{0, 0} : Canvas()->TextExtent(Caption());
  bool horizontal = layout_ == blGlyphLeft || layout_ == blGlyphRight;
  int gap = glyph >= 0 && !Caption().isEmpty() ? spacing_ : 0;
  int total = horizontal ? glyphSize.cx + gap + textSize.cx : glyphSize.cy + gap + textSize.cy;
  int start = horizontal ? face.Left + (face.Width() - total) / 2 : face.Top + (face.Height() - total) / 2;
  bool glyphFirst = layout_ == blGlyphLeft || layout_ == blGlyphTop;
  int glyphAt = glyphFirst ? start : start + total - (horizontal ? glyphSize.cx : glyphSize.cy);
  int textAt = glyphFirst ? start + total - (horizontal ? textSize.cx : textSize.cy) : start;
  int shift = pressed ? 1 : 0;
  auto place = [&](int along, TSize size) {
    return horizontal ? Point(along, face.Top + (face.Height() - size.cy) / 2)
                      : Point(face.Left + (face.Width() - size.cx) / 2, along);
  };
  if (glyph >= 0) {
    TPoint at = place(glyphAt, glyphSize);
    glyphs_->Draw(Canvas(), at.X + shift, at.Y + shift, glyph, Enabled() || glyphs_->Count() > 1);
  }
  if (Caption().isEmpty()) return;
  TPoint at = place(textAt, textSize);
  Canvas()->Brush()->SetStyle(bsClear);
  if (!Enabled()) Canvas()->Font()->SetColor(clGrayText);
  Canvas()->TextOut(at.X + shift, at.Y + shift, Caption());
}

void TSpeedButton::Paint() {
  TRect face = ClientRect();
  Canvas()->Brush()->SetColor(clBtnFace);
  PaintFrame(face);
  PaintContent(face, state_ == bsDown || state_ == bsExclusive);
}

}  // namespace quil
