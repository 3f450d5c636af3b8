// The text members of TCanvas and the text painting they share with DrawText.

#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"
#include "framework/graphics/DrawText.h"
#include "framework/graphics/Font_p.h"

namespace quil {

QFontMetrics TCanvasPrivate::Metrics() const { return QFontMetrics(TFontPrivate::QtFont(*canvas_->Font())); }

void TCanvasPrivate::PaintText(TPoint topLeft, const QString& text, bool opaque) {
  QPainter* painter = TextPainter();
  if (!painter || text.isEmpty()) return;
  const QFontMetrics metrics = Metrics();
  const QRect cell = Map(Bounds(topLeft.X, topLeft.Y, metrics.horizontalAdvance(text), metrics.height()));
  const int orientation = canvas_->Font()->Orientation();
  painter->save();
  if (orientation != 0) {
    // The cell turns about its top left corner, as escapement does.
    painter->translate(cell.topLeft());
    painter->rotate(-orientation / 10.0);
    painter->translate(-cell.topLeft());
  }
  if (opaque) painter->fillRect(cell, QtBrush());
  painter->setPen(ToQColor(canvas_->Font()->Color()));
  painter->drawText(QPoint(cell.left(), cell.top() + metrics.ascent()), text);
  painter->restore();
}

void TCanvas::TextOut(int x, int y, const QString& text) {
  d_->PaintText(Point(x, y), text, brush_->Style() != bsClear);
  penPos_ = Point(x + TextWidth(text), y);
  Changed();
}

void TCanvas::TextRect(const TRect& rect, int x, int y, const QString& text) {
  QPainter* painter = d_->TextPainter();
  if (!painter) return;
  painter->save();
  if (brush_->Style() != bsClear) painter->fillRect(d_->Map(rect), d_->QtBrush());
  painter->setClipRect(d_->Map(rect), painter->hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
  d_->PaintText(Point(x, y), text, false);
  painter->restore();
  Changed();
}

void TCanvas::TextRect(TRect& rect, const QString& text, TTextFormat format) {
  DrawText(this, text, -1, rect, TextFormatFlags(format));
  if (!format.Contains(tfCalcRect)) Changed();
}

int TCanvas::TextWidth(const QString& text) { return d_->Metrics().horizontalAdvance(text); }

int TCanvas::TextHeight(const QString& text) { return d_->Metrics().height(); }

TSize TCanvas::TextExtent(const QString& text) { return TSize{TextWidth(text), TextHeight(text)}; }

int TCanvas::AverageCharWidth() { return d_->Metrics().averageCharWidth(); }

unsigned TextFormatFlags(TTextFormat format) {
  static constexpr unsigned kFlags[] = {
      DT_BOTTOM, DT_CALCRECT, DT_CENTER, DT_EDITCONTROL, DT_END_ELLIPSIS, DT_PATH_ELLIPSIS,
      DT_EXPANDTABS, DT_EXTERNALLEADING, DT_LEFT, DT_MODIFYSTRING, DT_NOCLIP, DT_NOPREFIX,
      DT_RIGHT, DT_RTLREADING, DT_SINGLELINE, DT_TOP, DT_VCENTER, DT_WORDBREAK, DT_HIDEPREFIX,
      DT_NOFULLWIDTHCHARBREAK, DT_PREFIXONLY, DT_TABSTOP, DT_WORD_ELLIPSIS, 0};
  unsigned flags = 0;
  for (int member = tfBottom; member <= tfComposited; ++member)
    if (format.Contains(TTextFormats(member))) flags |= kFlags[member];
  return flags;
}

}  // namespace quil
