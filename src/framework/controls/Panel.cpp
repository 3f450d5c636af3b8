// TCustomPanel and TPanel.

#include "framework/controls/ExtCtrls.h"

#include "framework/graphics/Canvas.h"
#include "framework/graphics/DrawText.h"
#include "framework/graphics/FrameDrawing.h"

namespace quil {

namespace {

// Draws one bevel of width rings inward from rect, and takes them off rect.
void DrawBevel(TCanvas* canvas, TRect& rect, TBevelCut bevel, int width) {
  if (bevel == bvNone) return;
  for (int ring = 0; ring < width; ++ring) {
    if (bevel == bvSpace) rect.Inflate(-1, -1);
    else DrawEdge(canvas, rect, bevel == bvRaised ? BDR_RAISEDINNER : BDR_SUNKENOUTER, BF_RECT | BF_ADJUST);
  }
}

}  // namespace

const TMetaClass& TCustomPanel::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCustomPanel", &TCustomControl::StaticClass());
  return meta;
}

const TMetaClass& TCustomPanel::ClassType() const { return StaticClass(); }

const TMetaClass& TPanel::StaticClass() {
  static const TMetaClass meta = TMetaClass("TPanel", &TCustomPanel::StaticClass());
  return meta;
}

const TMetaClass& TPanel::ClassType() const { return StaticClass(); }

TCustomPanel::TCustomPanel(TComponent* owner) : TCustomControl(owner) {
  SetControlStyle({csAcceptsControls, csCaptureMouse, csClickEvents, csSetCaption, csOpaque, csDoubleClicks});
  SetColor(clBtnFace);
  SetParentColor(false);
  SetBounds(0, 0, 185, 41);
}

TCustomPanel::~TCustomPanel() = default;

TRect TCustomPanel::InnerRect() const {
  TRect rect = ClientRect();
  int inset = borderWidth_ + (bevelOuter_ != bvNone ? bevelWidth_ : 0) + (bevelInner_ != bvNone ? bevelWidth_ : 0);
  rect.Inflate(-inset, -inset);
  return rect;
}

void TCustomPanel::Paint() {
  TRect rect = ClientRect();
  Canvas()->FillRect(rect);
  DrawBevel(Canvas(), rect, bevelOuter_, bevelWidth_);
  rect.Inflate(-borderWidth_, -borderWidth_);
  DrawBevel(Canvas(), rect, bevelInner_, bevelWidth_);
  if (!showCaption_ || Caption().isEmpty()) return;
  Canvas()->Brush()->SetStyle(bsClear);
  unsigned flags = DT_SINGLELINE | DT_VCENTER | DT_EXPANDTABS;
  if (alignment_ == taCenter) flags |= DT_CENTER;
  else if (alignment_ == taRightJustify) flags |= DT_RIGHT;
  if (!Enabled()) Canvas()->Font()->SetColor(clGrayText);
  DrawText(Canvas(), Caption(), -1, rect, flags);
}

void TCustomPanel::AlignControls(TControl* control, TRect& rect) {
  rect = InnerRect();
  TCustomControl::AlignControls(control, rect);
}

void TCustomPanel::Changed() {
  Realign();
  Invalidate();
}

void TCustomPanel::SetBevelOuter(TBevelCut bevel) {
  if (bevel == bevelOuter_) return;
  bevelOuter_ = bevel;
  Changed();
}

void TCustomPanel::SetBevelInner(TBevelCut bevel) {
  if (bevel == bevelInner_) return;
  bevelInner_ = bevel;
  Changed();
}

void TCustomPanel::SetBevelWidth(int width) {
  if (width == bevelWidth_ || width < 1) return;
  bevelWidth_ = width;
  Changed();
}

void TCustomPanel::SetBorderWidth(int width) {
  if (width == borderWidth_ || width < 0) return;
  borderWidth_ = width;
  Changed();
}

void TCustomPanel::SetAlignment(TAlignment alignment) {
  if (alignment == alignment_) return;
  alignment_ = alignment;
  Invalidate();
}

void TCustomPanel::SetShowCaption(bool show) {
  if (show == showCaption_) return;
  showCaption_ = show;
  Invalidate();
}

}  // namespace quil
