#pragma once
// TCanvas: the framework's drawing surface. It draws through a QPainter that is bound to
// it from outside for the length of a paint (a control binds the widget's painter, see
// Canvas_p.h), or that it makes itself on demand (a bitmap's canvas). Font, Brush and
// Pen belong to the canvas; their changes reach the painter at the next operation
// that needs them. Coordinates follow the framework's rules: a rectangle excludes its
// Right and Bottom, LineTo stops before its end point, text is placed by its top.

#include <QString>
#include <memory>
#include <vector>

#include "framework/graphics/Brush.h"
#include "framework/graphics/Colors.h"
#include "framework/graphics/Font.h"
#include "framework/graphics/Pen.h"
#include "framework/graphics/Types.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Persistent.h"
#include "framework/rtl/Sets.h"

namespace quil {

class TGraphic;
class TCanvas;
class TCanvasPrivate;
// The framework's device context is the canvas itself.
using HDC = TCanvas*;

enum TCanvasOrientation { coLeftToRight, coRightToLeft };

enum TTextFormats {
  tfBottom, tfCalcRect, tfCenter, tfEditControl, tfEndEllipsis, tfPathEllipsis, tfExpandTabs,
  tfExternalLeading, tfLeft, tfModifyString, tfNoClip, tfNoPrefix, tfRight, tfRtlReading,
  tfSingleLine, tfTop, tfVerticalCenter, tfWordBreak, tfHidePrefix, tfNoFullWidthCharBreak,
  tfPrefixOnly, tfTabStop, tfWordEllipsis, tfComposited
};
using TTextFormat = TSet<TTextFormats>;

// TextFlags members, as ExtTextOut takes them.
constexpr int ETO_OPAQUE = 0x0002;
constexpr int ETO_CLIPPED = 0x0004;
constexpr int ETO_RTLREADING = 0x0080;

// CopyMode values: the raster operations CopyRect can apply.
constexpr int cmBlackness = 0x00000042;
constexpr int cmDstInvert = 0x00550009;
constexpr int cmMergePaint = 0x00BB0226;
constexpr int cmSrcAnd = 0x008800C6;
constexpr int cmSrcCopy = 0x00CC0020;
constexpr int cmSrcInvert = 0x00660046;
constexpr int cmSrcPaint = 0x00EE0086;
constexpr int cmWhiteness = 0x00FF0062;

class TCanvas : public TPersistent {
public:
  TCanvas();
  ~TCanvas() override;
  TCanvas(const TCanvas&) = delete;
  TCanvas& operator=(const TCanvas&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TFont* Font() const { return font_.get(); }
  void SetFont(const TFont* font) { font_->Assign(font); }
  TBrush* Brush() const { return brush_.get(); }
  void SetBrush(const TBrush* brush) { brush_->Assign(brush); }
  TPen* Pen() const { return pen_.get(); }
  void SetPen(const TPen* pen) { pen_->Assign(pen); }

  TPoint PenPos() const { return penPos_; }
  void SetPenPos(TPoint point) { penPos_ = point; }
  // ETO_ flags that TextOut and TextRect use; ETO_RTLREADING sets the reading order.
  int TextFlags() const { return textFlags_; }
  void SetTextFlags(int flags) { textFlags_ = flags; }
  int CopyMode() const { return copyMode_; }
  void SetCopyMode(int mode) { copyMode_ = mode; }

  // coRightToLeft mirrors every x coordinate within the width of the bound device, as a
  // right-to-left window's device context does; text itself reads as it always does.
  TCanvasOrientation CanvasOrientation() const;
  void SetCanvasOrientation(TCanvasOrientation orientation);

  // True while a painter is bound; the framework's name of "the canvas has a handle".
  bool HandleAllocated() const;
  HDC Handle() { return this; }
  // Locking guards a canvas shared between threads; ours lives on the GUI thread.
  void Lock() { ++lockCount_; }
  void Unlock() { --lockCount_; }
  bool TryLock() { Lock(); return true; }
  int LockCount() const { return lockCount_; }

  void FillRect(const TRect& rect);
  void FrameRect(const TRect& rect);
  void Rectangle(const TRect& rect);
  void Rectangle(int left, int top, int right, int bottom) { Rectangle(Rect(left, top, right, bottom)); }
  void RoundRect(const TRect& rect, int cornerWidth, int cornerHeight);
  void Ellipse(const TRect& rect);
  void MoveTo(int x, int y) { penPos_ = Point(x, y); }
  // Draws from PenPos up to, not including, (x, y), and moves PenPos there.
  void LineTo(int x, int y);
  void Polyline(const std::vector<TPoint>& points);
  void Polygon(const std::vector<TPoint>& points);
  // Inverts a dotted frame; drawing it twice restores the pixels.
  void DrawFocusRect(const TRect& rect);

  // Text placed by its top left; the brush, unless clear, fills behind it. TextOut
  // moves PenPos to the end of the text.
  void TextOut(int x, int y, const QString& text);
  // Text at (x, y) clipped to rect; the brush, unless clear, fills all of rect.
  void TextRect(const TRect& rect, int x, int y, const QString& text);
  // Text laid out in rect by format; with tfCalcRect only measures and updates rect.
  void TextRect(TRect& rect, const QString& text, TTextFormat format);
  int TextWidth(const QString& text);
  int TextHeight(const QString& text);
  TSize TextExtent(const QString& text);
  int AverageCharWidth();

  // Copies source's pixels at sourceRect into destRect with CopyMode, stretching.
  void CopyRect(const TRect& destRect, TCanvas* source, const TRect& sourceRect);
  void Draw(int x, int y, TGraphic* graphic);
  void StretchDraw(const TRect& rect, TGraphic* graphic);

  TColor Pixel(int x, int y);
  void SetPixel(int x, int y, TColor color);

  // The bounds of the area that drawing reaches, in this canvas' coordinates.
  TRect ClipRect();
  // Narrows the clip to rect; answers whether anything is left to draw in.
  bool IntersectClipRect(const TRect& rect);
  // Replaces the clip by rect, or removes the canvas' own clip when rect is null.
  void SelectClipRect(const TRect* rect);
  // Saves clip and painter state; the id goes to RestoreDC. 0 on failure.
  int SaveDC();
  // Restores the state saved under id, or the last one for a negative id.
  bool RestoreDC(int savedState);

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }

protected:
  // Called when an operation needs a painter and none is bound; a canvas that owns
  // its surface binds one here.
  virtual void CreateHandle() {}
  virtual void Changed();

private:
  friend class TCanvasPrivate;
  void ObjectChanged(TObject* sender);

  std::unique_ptr<TFont> font_;
  std::unique_ptr<TBrush> brush_;
  std::unique_ptr<TPen> pen_;
  TPoint penPos_;
  int textFlags_ = 0;
  int copyMode_ = cmSrcCopy;
  int lockCount_ = 0;
  TNotifyEvent onChange_;
  std::unique_ptr<TCanvasPrivate> d_;
};

}  // namespace quil
