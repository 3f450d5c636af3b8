// TCustomLabel, TLabel and TBoundLabel.

#include "framework/controls/Labels.h"

#include <algorithm>

#include "framework/graphics/Canvas.h"
#include "framework/graphics/DrawText.h"
#include "framework/graphics/Font.h"

namespace quil {

const TMetaClass& TCustomLabel::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCustomLabel", &TGraphicControl::StaticClass());
  return meta;
}

const TMetaClass& TCustomLabel::ClassType() const { return StaticClass(); }

TCustomLabel::TCustomLabel(TComponent* owner) : TGraphicControl(owner) {
  SetBounds(0, 0, 65, 17);
}

TCustomLabel::~TCustomLabel() = default;

const TMetaClass& TLabel::StaticClass() {
  static const TMetaClass meta = TMetaClass("TLabel", &TCustomLabel::StaticClass());
  return meta;
}

const TMetaClass& TLabel::ClassType() const { return StaticClass(); }

unsigned TCustomLabel::DrawTextFlags() const {
  unsigned flags = DT_EXPANDTABS;
  if (alignment_ == taRightJustify) flags |= DT_RIGHT;
  else if (alignment_ == taCenter) flags |= DT_CENTER;
  if (wordWrap_) flags |= DT_WORDBREAK;
  else if (layout_ != tlTop) flags |= DT_SINGLELINE | (layout_ == tlCenter ? DT_VCENTER : DT_BOTTOM);
  if (!showAccelChar_) flags |= DT_NOPREFIX;
  return flags;
}

void TCustomLabel::Paint() {
  TRect rect = ClientRect();
  if (!transparent_) Canvas()->FillRect(rect);
  Canvas()->Brush()->SetStyle(bsClear);
  if (!Enabled()) Canvas()->Font()->SetColor(clGrayText);
  unsigned flags = DrawTextFlags();
  // A wrapped text is placed as a block: its height decides where it starts.
  if (wordWrap_ && layout_ != tlTop) {
    TRect measured = rect;
    DrawText(Canvas(), Caption(), -1, measured, flags | DT_CALCRECT);
    int spare = rect.Height() - measured.Height();
    rect.Top += layout_ == tlCenter ? spare / 2 : spare;
  }
  DrawText(Canvas(), Caption(), -1, rect, flags);
}

void TCustomLabel::AdjustBounds() {
  if (!autoSize_) return;
  Canvas()->SetFont(Font());
  TRect rect = Rect(0, 0, wordWrap_ ? Width() : 0, 0);
  // An empty caption still takes a line's height.
  DrawText(Canvas(), Caption().isEmpty() ? QStringLiteral(" ") : Caption(), -1, rect,
           (DrawTextFlags() & ~(DT_VCENTER | DT_BOTTOM)) | DT_CALCRECT);
  int left = Left();
  // A right-aligned label grows to the left, a centred one both ways.
  if (!wordWrap_ && alignment_ == taRightJustify) left += Width() - rect.Width();
  else if (!wordWrap_ && alignment_ == taCenter) left += (Width() - rect.Width()) / 2;
  // A wrapping label keeps its width: the lines break within it.
  SetBounds(left, Top(), wordWrap_ ? Width() : rect.Width(), rect.Height());
}

void TCustomLabel::SetAlignment(TAlignment alignment) {
  if (alignment == alignment_) return;
  alignment_ = alignment;
  Invalidate();
}

void TCustomLabel::SetLayout(TTextLayout layout) {
  if (layout == layout_) return;
  layout_ = layout;
  Invalidate();
}

void TCustomLabel::SetWordWrap(bool wordWrap) {
  if (wordWrap == wordWrap_) return;
  wordWrap_ = wordWrap;
  AdjustBounds();
  Invalidate();
}

void TCustomLabel::SetAutoSize(bool autoSize) {
  if (autoSize == autoSize_) return;
  autoSize_ = autoSize;
  AdjustBounds();
}

void TCustomLabel::SetTransparent(bool transparent) {
  if (transparent == transparent_) return;
  transparent_ = transparent;
  Invalidate();
}

void TCustomLabel::SetShowAccelChar(bool show) {
  if (show == showAccelChar_) return;
  showAccelChar_ = show;
  AdjustBounds();
  Invalidate();
}

void TCustomLabel::SetFocusControl(TWinControl* control) {
  ReplaceReference(focusControl_, control);
}

void TCustomLabel::Notification(TComponent* component, TOperation operation) {
  TGraphicControl::Notification(component, operation);
  if (operation == opRemove && component == focusControl_) focusControl_ = nullptr;
}

void TCustomLabel::CMTextChanged(TMessage& message) {
  AdjustBounds();
  Invalidate();
}

void TCustomLabel::CMFontChanged(TMessage& message) {
  TGraphicControl::CMFontChanged(message);
  AdjustBounds();
}

const TMetaClass& TBoundLabel::StaticClass() {
  static const TMetaClass meta = TMetaClass("TBoundLabel", &TCustomLabel::StaticClass());
  return meta;
}

const TMetaClass& TBoundLabel::ClassType() const { return StaticClass(); }

TBoundLabel::TBoundLabel(TControl* bound) : TCustomLabel(bound), bound_(bound) {
  SetName(QStringLiteral("SubLabel"));
  UpdatePosition();
}

void TBoundLabel::SetLabelPosition(TLabelPosition position) {
  if (position == position_) return;
  position_ = position;
  UpdatePosition();
}

void TBoundLabel::SetLabelSpacing(int spacing) {
  if (spacing == spacing_) return;
  spacing_ = spacing;
  UpdatePosition();
}

void TBoundLabel::AdjustBounds() {
  TCustomLabel::AdjustBounds();
  UpdatePosition();
}

void TBoundLabel::UpdatePosition() {
  if (Parent() != bound_->Parent()) SetParent(bound_->Parent());
  TRect anchor = bound_->BoundsRect();
  TPoint at;
  switch (position_) {
    case lpAbove: at = Point(anchor.Left, anchor.Top - Height() - spacing_); break;
    case lpBelow: at = Point(anchor.Left, anchor.Bottom + spacing_); break;
    case lpLeft: at = Point(anchor.Left - Width() - spacing_, anchor.Top + (anchor.Height() - Height()) / 2); break;
    case lpRight: at = Point(anchor.Right + spacing_, anchor.Top + (anchor.Height() - Height()) / 2); break;
  }
  if (at != Point(Left(), Top())) SetBounds(at.X, at.Y, Width(), Height());
}

}  // namespace quil
