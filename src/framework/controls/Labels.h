#pragma once
// TLabel: text painted by the parent, with alignment, layout, word wrap and auto size.
// TBoundLabel: a label that keeps its place beside the control it names.

#include "framework/controls/Controls.h"
#include "framework/rtl/Alignment.h"

namespace quil {

enum TTextLayout { tlTop, tlCenter, tlBottom };
enum TLabelPosition { lpAbove, lpBelow, lpLeft, lpRight };

class TCustomLabel : public TGraphicControl {
public:
  explicit TCustomLabel(TComponent* owner);
  ~TCustomLabel() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TAlignment Alignment() const { return alignment_; }
  void SetAlignment(TAlignment alignment);
  TTextLayout Layout() const { return layout_; }
  void SetLayout(TTextLayout layout);
  bool WordWrap() const { return wordWrap_; }
  void SetWordWrap(bool wordWrap);
  // The label takes the size of its text (the width too, unless it wraps).
  bool AutoSize() const { return autoSize_; }
  void SetAutoSize(bool autoSize);
  // The parent shows through behind the text.
  bool Transparent() const { return transparent_; }
  void SetTransparent(bool transparent);
  // '&' marks the accelerator character rather than standing for itself.
  bool ShowAccelChar() const { return showAccelChar_; }
  void SetShowAccelChar(bool show);
  // The control that the label's accelerator focuses; null for none.
  TWinControl* FocusControl() const { return focusControl_; }
  void SetFocusControl(TWinControl* control);

protected:
  void Paint() override;
  void Notification(TComponent* component, TOperation operation) override;
  void CMTextChanged(TMessage& message) override;
  void CMFontChanged(TMessage& message) override;
  // Resizes to the text when AutoSize is on.
  virtual void AdjustBounds();
  unsigned DrawTextFlags() const;

private:
  TAlignment alignment_ = taLeftJustify;
  TTextLayout layout_ = tlTop;
  bool wordWrap_ = false;
  bool autoSize_ = true;
  bool transparent_ = false;
  bool showAccelChar_ = true;
  TWinControl* focusControl_ = nullptr;
};

class TLabel : public TCustomLabel {
public:
  using TCustomLabel::TCustomLabel;
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

// The label of an edit: owned by the control it names, on that control's parent, placed
// above, below, left or right of it LabelSpacing pixels away.
class TBoundLabel : public TCustomLabel {
public:
  explicit TBoundLabel(TControl* bound);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TControl* BoundControl() const { return bound_; }
  TLabelPosition LabelPosition() const { return position_; }
  void SetLabelPosition(TLabelPosition position);
  int LabelSpacing() const { return spacing_; }
  void SetLabelSpacing(int spacing);
  // Follows the bound control to its parent and its place; it calls this when it moves.
  void UpdatePosition();

protected:
  void AdjustBounds() override;

private:
  TControl* bound_;
  TLabelPosition position_ = lpAbove;
  int spacing_ = 3;
};

}  // namespace quil
