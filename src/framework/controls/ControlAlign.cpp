// TWinControl: laying out the child controls by their Align, the top and bottom ones
// first across the whole width, then the left and right ones in what is left, and the
// client one in the rest. Children keep the order in which they were inserted.

#include <algorithm>

#include "framework/controls/Controls.h"

namespace quil {

namespace {

// Takes the control's strip off the given side of rect and answers where it goes.
TRect TakeStrip(TAlign align, TRect& rect, const TControl& control) {
  TRect place = rect;
  switch (align) {
    case alTop:
      place.Bottom = std::min(rect.Top + control.Height(), rect.Bottom);
      rect.Top = place.Bottom;
      break;
    case alBottom:
      place.Top = std::max(rect.Bottom - control.Height(), rect.Top);
      rect.Bottom = place.Top;
      break;
    case alLeft:
      place.Right = std::min(rect.Left + control.Width(), rect.Right);
      rect.Left = place.Right;
      break;
    case alRight:
      place.Left = std::max(rect.Right - control.Width(), rect.Left);
      rect.Right = place.Left;
      break;
    default: break;
  }
  return place;
}

}  // namespace

void TWinControl::Realign() {
  if (aligning_) return;
  TRect rect = ClientRect();
  aligning_ = true;
  AlignControls(nullptr, rect);
  aligning_ = false;
}

void TWinControl::AlignControls(TControl* control, TRect& rect) {
  const TRect client = ClientRect();
  for (TControl* child : std::vector<TControl*>(controls_)) child->ApplyAnchors(Point(client.Width(), client.Height()));
  for (TAlign align : {alTop, alBottom, alLeft, alRight, alClient}) {
    for (TControl* child : std::vector<TControl*>(controls_)) {
      if (child->Align() != align || !child->Visible()) continue;
      TRect place = align == alClient ? rect : TakeStrip(align, rect, *child);
      child->SetBoundsRect(place);
    }
  }
}

}  // namespace quil
