#pragma once
// TSpeedButton: a button without a window, painted by its parent, with a glyph and a
// caption; in a group (GroupIndex > 0) it stays down, as one of the group's radio choices
// or, with AllowAllUp, as a toggle.

#include <memory>

#include "framework/controls/Controls.h"

namespace quil {

class TBitmap;
class TImageList;

enum TButtonLayout { blGlyphLeft, blGlyphRight, blGlyphTop, blGlyphBottom };
enum TButtonState { bsUp, bsDisabled, bsDown, bsExclusive };

class TSpeedButton : public TGraphicControl {
public:
  explicit TSpeedButton(TComponent* owner);
  ~TSpeedButton() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // A strip of NumGlyphs images: up, disabled, down, exclusive; the colour of its
  // bottom-left pixel is transparent. Without a disabled image the up one is greyed.
  TBitmap* Glyph() const { return glyph_.get(); }
  void SetGlyph(const TBitmap* glyph);
  int NumGlyphs() const { return numGlyphs_; }
  void SetNumGlyphs(int count);
  TButtonLayout Layout() const { return layout_; }
  void SetLayout(TButtonLayout layout);
  // Pixels between glyph and caption.
  int Spacing() const { return spacing_; }
  void SetSpacing(int spacing);
  // No frame until the mouse is over the button.
  bool Flat() const { return flat_; }
  void SetFlat(bool flat);
  // Buttons of one parent with the same GroupIndex > 0 form a group.
  int GroupIndex() const { return groupIndex_; }
  void SetGroupIndex(int index);
  bool AllowAllUp() const { return allowAllUp_; }
  void SetAllowAllUp(bool allow);
  bool Down() const { return down_; }
  void SetDown(bool down);
  TButtonState State() const { return state_; }
  bool MouseInControl() const { return mouseInControl_; }

  // Clicks as the user does, for the program.
  using TGraphicControl::Click;

protected:
  void Paint() override;
  void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
  void MouseMove(TShiftState shift, int x, int y) override;
  void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
  void CMMouseEnter(TMessage& message) override;
  void CMMouseLeave(TMessage& message) override;
  void CMEnabledChanged(TMessage& message) override;

private:
  // Lets the other buttons of the group up when this one goes down.
  void UpdateExclusive();
  TButtonState RestingState() const;
  void PaintFrame(TRect& face);
  void PaintContent(const TRect& face, bool pressed);
  // The glyph's image for the state; -1 when there is no glyph.
  int GlyphIndex();

  std::unique_ptr<TBitmap> glyph_;
  std::unique_ptr<TImageList> glyphs_;  // the glyph cut into its images
  int numGlyphs_ = 1;
  TButtonLayout layout_ = blGlyphLeft;
  int spacing_ = 4;
  bool flat_ = false;
  int groupIndex_ = 0;
  bool allowAllUp_ = false;
  bool down_ = false;
  bool dragging_ = false;
  bool mouseInControl_ = false;
  TButtonState state_ = bsUp;
};

}  // namespace quil
