#pragma once
// TPanel: a container with bevels and a caption. TShape: a figure drawn with a pen and a
// brush.

#include <memory>

#include "framework/controls/Controls.h"
#include "framework/rtl/Alignment.h"

namespace quil {

class TBrush;
class TPen;

enum TBevelCut { bvNone, bvLowered, bvRaised, bvSpace };

class TCustomPanel : public TCustomControl {
public:
  explicit TCustomPanel(TComponent* owner);
  ~TCustomPanel() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TBevelCut BevelOuter() const { return bevelOuter_; }
  void SetBevelOuter(TBevelCut bevel);
  TBevelCut BevelInner() const { return bevelInner_; }
  void SetBevelInner(TBevelCut bevel);
  int BevelWidth() const { return bevelWidth_; }
  void SetBevelWidth(int width);
  // Pixels between the bevels.
  int BorderWidth() const { return borderWidth_; }
  void SetBorderWidth(int width);
  TAlignment Alignment() const { return alignment_; }
  void SetAlignment(TAlignment alignment);
  bool ShowCaption() const { return showCaption_; }
  void SetShowCaption(bool show);

  // The client area less the bevels and the border: where aligned children go.
  TRect InnerRect() const;

protected:
  void Paint() override;
  void AlignControls(TControl* control, TRect& rect) override;

private:
  void Changed();

  TBevelCut bevelOuter_ = bvRaised;
  TBevelCut bevelInner_ = bvNone;
  int bevelWidth_ = 1;
  int borderWidth_ = 0;
  TAlignment alignment_ = taCenter;
  bool showCaption_ = true;
};

class TPanel : public TCustomPanel {
public:
  using TCustomPanel::TCustomPanel;
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

enum TShapeType { stRectangle, stSquare, stRoundRect, stRoundSquare, stEllipse, stCircle };

class TShape : public TGraphicControl {
public:
  explicit TShape(TComponent* owner);
  ~TShape() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TShapeType Shape() const { return shape_; }
  void SetShape(TShapeType shape);
  // Changing either repaints the shape.
  TPen* Pen() const { return pen_.get(); }
  TBrush* Brush() const { return brush_.get(); }

protected:
  void Paint() override;

private:
  void StyleChanged(TObject* sender);

  TShapeType shape_ = stRectangle;
  std::unique_ptr<TPen> pen_;
  std::unique_ptr<TBrush> brush_;
};

}  // namespace quil
