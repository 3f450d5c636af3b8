// The properties a control publishes beside its look: alignment, reading order and
// border, anchors and size constraints, drag settings, style elements, its custom hint,
// and for a window the Tab order and the input method.

#include <QWidget>
#include <algorithm>

#include "framework/controls/Controls.h"
#include "framework/controls/Controls_p.h"
#include "framework/controls/Hints.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TEnumTypeInfo& TypeInfo(TAlign) {
  static const TEnumTypeInfo info("TAlign", {"alNone", "alTop", "alBottom", "alLeft", "alRight", "alClient", "alCustom"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TBiDiMode) {
  static const TEnumTypeInfo info(
      "TBiDiMode", {"bdLeftToRight", "bdRightToLeft", "bdRightToLeftNoAlign", "bdRightToLeftReadingOnly"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TBorderStyle) {
  static const TEnumTypeInfo info("TBorderStyle", {"bsNone", "bsSingle"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TAnchorKind) {
  static const TEnumTypeInfo info("TAnchorKind", {"akLeft", "akTop", "akRight", "akBottom"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TDragKind) {
  static const TEnumTypeInfo info("TDragKind", {"dkDrag", "dkDock"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TDragMode) {
  static const TEnumTypeInfo info("TDragMode", {"dmManual", "dmAutomatic"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TStyleElement) {
  static const TEnumTypeInfo info("TStyleElement", {"seFont", "seClient", "seBorder"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TImeMode) {
  static const TEnumTypeInfo info("TImeMode", {"imDisable", "imClose", "imOpen", "imDontCare", "imSAlpha", "imAlpha",
                                               "imHira", "imSKata", "imKata", "imChinese", "imSHanguel", "imHanguel"});
  return info;
}

// --- Size constraints

const TMetaClass& TSizeConstraints::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TSizeConstraints", &TPersistent::StaticClass())
          .Published(IntProp("MaxHeight", &TSizeConstraints::MaxHeight, &TSizeConstraints::SetMaxHeight).Default(0))
          .Published(IntProp("MaxWidth", &TSizeConstraints::MaxWidth, &TSizeConstraints::SetMaxWidth).Default(0))
          .Published(IntProp("MinHeight", &TSizeConstraints::MinHeight, &TSizeConstraints::SetMinHeight).Default(0))
          .Published(IntProp("MinWidth", &TSizeConstraints::MinWidth, &TSizeConstraints::SetMinWidth).Default(0));
  return meta;
}

const TMetaClass& TSizeConstraints::ClassType() const { return StaticClass(); }

TPersistent* TSizeConstraints::GetOwner() const { return control_; }

void TSizeConstraints::Store(int& member, int value) {
  value = std::max(value, 0);
  if (value == member) return;
  member = value;
  control_->ConstraintsChanged();
}

void TSizeConstraints::Constrain(int& width, int& height) const {
  if (maxWidth_ > 0) width = std::min(width, maxWidth_);
  if (minWidth_ > 0) width = std::max(width, minWidth_);
  if (maxHeight_ > 0) height = std::min(height, maxHeight_);
  if (minHeight_ > 0) height = std::max(height, minHeight_);
}

void TSizeConstraints::Assign(const TPersistent* source) {
  auto* other = dynamic_cast<const TSizeConstraints*>(source);
  if (!other) {
    TPersistent::Assign(source);
    return;
  }
  maxHeight_ = other->maxHeight_;
  maxWidth_ = other->maxWidth_;
  minHeight_ = other->minHeight_;
  minWidth_ = other->minWidth_;
  control_->ConstraintsChanged();
}

void TControl::ConstraintsChanged() { SetBounds(Left(), Top(), Width(), Height()); }

// A window the user sizes (a form) keeps the limits as well.
void TWinControl::ConstraintsChanged() {
  TControl::ConstraintsChanged();
  QWidget* widget = d_->Widget();
  if (!widget || Parent()) return;
  const TSizeConstraints* limits = Constraints();
  widget->setMinimumSize(limits->MinWidth(), limits->MinHeight());
  widget->setMaximumSize(limits->MaxWidth() > 0 ? limits->MaxWidth() : QWIDGETSIZE_MAX,
                         limits->MaxHeight() > 0 ? limits->MaxHeight() : QWIDGETSIZE_MAX);
}

// --- Anchors

void TControl::SetAnchors(TAnchors anchors) {
  if (anchors == anchors_) return;
  anchors_ = anchors;
  RecordAnchorRules();
}

void TControl::RecordAnchorRules() {
  if (anchoring_) return;
  anchorBounds_ = bounds_;
  if (parent_) {
    const TRect client = parent_->ClientRect();
    anchorClientSize_ = Point(client.Width(), client.Height());
  }
}

void TControl::ApplyAnchors(TPoint clientSize) {
  if (align_ != alNone || anchors_ == TAnchors{akLeft, akTop}) return;
  // Each axis: both sides stretch, the far side alone moves, neither keeps the centre.
  auto follow = [](bool nearSide, bool farSide, int delta, int& start, int& extent) {
    if (farSide && nearSide) extent += delta;
    else if (farSide) start += delta;
    else if (!nearSide) start += delta / 2;
  };
  int left = anchorBounds_.Left, top = anchorBounds_.Top;
  int width = anchorBounds_.Width(), height = anchorBounds_.Height();
  follow(anchors_.Contains(akLeft), anchors_.Contains(akRight), clientSize.X - anchorClientSize_.X, left, width);
  follow(anchors_.Contains(akTop), anchors_.Contains(akBottom), clientSize.Y - anchorClientSize_.Y, top, height);
  anchoring_ = true;
  SetBounds(left, top, std::max(width, 0), std::max(height, 0));
  anchoring_ = false;
}

// --- Look and hints

void TControl::SetCustomHint(TCustomHint* hint) {
  if (hint == customHint_) return;
  if (customHint_) RemoveFreeNotification(customHint_);
  customHint_ = hint;
  if (hint) {
    FreeNotification(hint);
    parentCustomHint_ = false;
  }
}

// --- Tab order

int TWinControl::TabOrder() const {
  if (!Parent()) return pendingTabOrder_;
  const std::vector<TWinControl*>& list = Parent()->tabList_;
  auto found = std::find(list.begin(), list.end(), this);
  return found == list.end() ? -1 : int(found - list.begin());
}

void TWinControl::SetTabOrder(int order) {
  if (!Parent()) {
    pendingTabOrder_ = order;
    return;
  }
  std::vector<TWinControl*>& list = Parent()->tabList_;
  auto found = std::find(list.begin(), list.end(), this);
  if (found == list.end()) return;
  list.erase(found);
  order = std::clamp(order, 0, int(list.size()));
  list.insert(list.begin() + order, this);
  Parent()->ApplyTabOrder();
}

void TWinControl::ApplyTabOrder() {
  QWidget* previous = nullptr;
  for (TWinControl* child : tabList_) {
    QWidget* widget = child->d_->Widget();
    if (!widget) continue;
    if (previous) QWidget::setTabOrder(previous, widget);
    previous = widget;
  }
}

// --- Input method

void TWinControl::SetImeMode(TImeMode mode) {
  if (mode == imeMode_) return;
  imeMode_ = mode;
  UpdateInputMethod();
}

void TWinControl::UpdateInputMethod() {
  QWidget* widget = d_->Widget();
  if (!widget) return;
  if (imeMode_ == imDisable || imeMode_ == imClose) widget->setAttribute(Qt::WA_InputMethodEnabled, false);
  else if (imeMode_ != imDontCare) widget->setAttribute(Qt::WA_InputMethodEnabled, true);
}

}  // namespace quil
