// DrawText: the framework's text layout over Qt's font metrics and line breaking.

#include <QTextBoundaryFinder>
#include <vector>

#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"
#include "framework/graphics/DrawText.h"

namespace quil {

namespace {
constexpr int kTabColumns = 8;

struct Line {
  QString text;
  int start = 0;  // offset of text in the prepared string; -1 once an ellipsis cut it
};

struct Prepared {
  QString text;
  int prefix = -1;  // the character to underline, -1 for none
};

QString ExpandTabs(const QString& text) {
  QString result;
  int column = 0;
  for (QChar ch : text) {
    if (ch == QLatin1Char('\t')) {
      const int spaces = kTabColumns - column % kTabColumns;
      result += QString(spaces, QLatin1Char(' '));
      column += spaces;
    } else {
      result += ch;
      column = (ch == QLatin1Char('\n') || ch == QLatin1Char('\r')) ? 0 : column + 1;
    }
  }
  return result;
}

// "&x" underlines x and "&&" is one ampersand.
Prepared StripPrefixes(const QString& text) {
  Prepared prepared;
  for (int index = 0; index < text.size(); ++index) {
    if (text[index] == QLatin1Char('&') && index + 1 < text.size()) {
      ++index;
      if (text[index] != QLatin1Char('&')) prepared.prefix = int(prepared.text.size());
    }
    prepared.text += text[index];
  }
  return prepared;
}

Prepared Prepare(const QString& text, unsigned format) {
  QString expanded = (format & DT_EXPANDTABS) ? ExpandTabs(text) : text;
  if (format & DT_SINGLELINE) {
    expanded.replace(QLatin1String("\r\n"), QLatin1String(" "));
    expanded.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
  }
  if (format & DT_NOPREFIX) return Prepared{expanded, -1};
  Prepared prepared = StripPrefixes(expanded);
  if (format & DT_HIDEPREFIX) prepared.prefix = -1;
  return prepared;
}

class LineBreaker {
public:
  LineBreaker(const QFontMetrics& metrics, int width, bool breakWords)
      : metrics_(metrics), width_(width), breakWords_(breakWords) {}

  void Wrap(const QString& text, int offset, std::vector<Line>& lines) const {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    const size_t linesBefore = lines.size();
    int lineStart = 0;
    int lastFit = 0;
    for (int boundary = int(finder.toNextBoundary()); boundary > 0; boundary = int(finder.toNextBoundary())) {
      if (Fits(text, lineStart, boundary)) {
        lastFit = boundary;
        continue;
      }
      if (lastFit > lineStart) {
        Emit(text, offset, lineStart, lastFit, lines);
        lineStart = lastFit;
        if (Fits(text, lineStart, boundary)) {
          lastFit = boundary;
          continue;
        }
      }
      lineStart = BreakWide(text, offset, lineStart, boundary, lines);
      lastFit = Fits(text, lineStart, boundary) ? boundary : lineStart;
    }
    if (lineStart < text.size() || lines.size() == linesBefore) Emit(text, offset, lineStart, int(text.size()), lines);
  }

private:
  int Width(const QString& text, int from, int to) const {
    return metrics_.horizontalAdvance(text.mid(from, to - from).trimmed());
  }
  bool Fits(const QString& text, int from, int to) const { return Width(text, from, to) <= width_; }

  void Emit(const QString& text, int offset, int from, int to, std::vector<Line>& lines) const {
    int end = to;
    while (end > from && text[end - 1].isSpace()) --end;
    lines.push_back(Line{text.mid(from, end - from), offset + from});
  }

  // A word wider than the line: whole on a line of its own, or cut by characters.
  int BreakWide(const QString& text, int offset, int from, int to, std::vector<Line>& lines) const {
    if (!breakWords_) {
      Emit(text, offset, from, to, lines);
      return to;
    }
    int start = from;
    while (start < to) {
      int end = start + 1;
      while (end < to && Fits(text, start, end + 1)) ++end;
      if (end == to) return start;  // the rest fits and may take the next word
      Emit(text, offset, start, end, lines);
      start = end;
    }
    return start;
  }

  const QFontMetrics& metrics_;
  int width_;
  bool breakWords_;
};

std::vector<Line> SplitLines(const QString& text, unsigned format, const QFontMetrics& metrics, int width) {
  std::vector<Line> lines;
  if (format & DT_SINGLELINE) return {Line{text, 0}};
  const LineBreaker breaker(metrics, width, format & DT_EDITCONTROL);
  int start = 0;
  for (int index = 0; index <= text.size(); ++index) {
    const bool end = index == text.size();
    if (!end && text[index] != QLatin1Char('\r') && text[index] != QLatin1Char('\n')) continue;
    const QString paragraph = text.mid(start, index - start);
    if (format & DT_WORDBREAK) breaker.Wrap(paragraph, start, lines);
    else lines.push_back(Line{paragraph, start});
    if (!end && text[index] == QLatin1Char('\r') && index + 1 < text.size() && text[index + 1] == QLatin1Char('\n')) ++index;
    start = index + 1;
  }
  return lines;
}

Qt::TextElideMode ElideMode(unsigned format) {
  if (format & DT_PATH_ELLIPSIS) return Qt::ElideMiddle;
  if (format & (DT_END_ELLIPSIS | DT_WORD_ELLIPSIS)) return Qt::ElideRight;
  return Qt::ElideNone;
}

// Lines past the rectangle's foot go; with an ellipsis the last line that stays takes
// the rest of the text, so that the cut shows.
void FitLines(std::vector<Line>& lines, const Prepared& prepared, unsigned format, int lineHeight, int height) {
  const int room = lineHeight > 0 ? height / lineHeight : 0;
  const bool ellipsis = ElideMode(format) != Qt::ElideNone;
  if (!(format & DT_WORDBREAK) || int(lines.size()) <= std::max(room, 1)) return;
  if (ellipsis) {
    const int keep = std::max(room, 1);
    Line& last = lines[size_t(keep - 1)];
    last.text = prepared.text.mid(last.start).replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    lines.resize(size_t(keep));
  } else if (format & DT_EDITCONTROL) {
    lines.resize(size_t(room));
  }
}

void ElideLines(std::vector<Line>& lines, unsigned format, const QFontMetrics& metrics, int width) {
  const Qt::TextElideMode mode = ElideMode(format);
  if (mode == Qt::ElideNone) return;
  for (Line& line : lines) {
    if (metrics.horizontalAdvance(line.text) <= width) continue;
    line.text = metrics.elidedText(line.text, mode, width);
    line.start = -1;
  }
}

int LineX(const TRect& rect, int lineWidth, unsigned format) {
  if (format & DT_CENTER) return rect.Left + (rect.Width() - lineWidth) / 2;
  if (format & DT_RIGHT) return rect.Right - lineWidth;
  return rect.Left;
}

int FirstLineY(const TRect& rect, int textHeight, unsigned format) {
  if (!(format & DT_SINGLELINE)) return rect.Top;
  if (format & DT_VCENTER) return rect.Top + (rect.Height() - textHeight) / 2;
  if (format & DT_BOTTOM) return rect.Bottom - textHeight;
  return rect.Top;
}

void Underline(TCanvas* canvas, const Line& line, int prefix, TPoint origin, const QFontMetrics& metrics) {
  if (line.start < 0 || prefix < line.start || prefix >= line.start + line.text.size()) return;
  const int column = prefix - line.start;
  const int x = origin.X + metrics.horizontalAdvance(line.text.left(column));
  const TRect bar = Bounds(x, origin.Y + metrics.ascent() + 1, metrics.horizontalAdvance(line.text.mid(column, 1)), 1);
  TCanvasPrivate* d = TCanvasPrivate::Get(canvas);
  d->Painter()->fillRect(d->Map(bar), ToQColor(canvas->Font()->Color()));
}

void PaintLines(TCanvas* canvas, const std::vector<Line>& lines, const Prepared& prepared, const TRect& rect,
                unsigned format, int top, int lineHeight) {
  TCanvasPrivate* d = TCanvasPrivate::Get(canvas);
  QPainter* painter = d->TextPainter();
  if (!painter) return;
  const QFontMetrics metrics = d->Metrics();
  const bool opaque = canvas->Brush()->Style() != bsClear;
  painter->save();
  painter->setLayoutDirection((format & DT_RTLREADING) ? Qt::RightToLeft : Qt::LeftToRight);
  if (!(format & DT_NOCLIP))
    painter->setClipRect(d->Map(rect), painter->hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
  int y = top;
  for (const Line& line : lines) {
    const TPoint origin = Point(LineX(rect, metrics.horizontalAdvance(line.text), format), y);
    if (!(format & DT_PREFIXONLY)) d->PaintText(origin, line.text, opaque);
    Underline(canvas, line, prepared.prefix, origin, metrics);
    y += lineHeight;
  }
  painter->restore();
}
}  // namespace

int DrawText(HDC dc, const QString& text, int count, TRect& rect, unsigned format) {
  if (!dc) return 0;
  TCanvasPrivate* d = TCanvasPrivate::Get(dc);
  const QFontMetrics metrics = d->Metrics();
  const Prepared prepared = Prepare(count < 0 ? text : text.left(count), format);
  const int lineHeight = metrics.height() + ((format & DT_EXTERNALLEADING) ? metrics.leading() : 0);
  std::vector<Line> lines = SplitLines(prepared.text, format, metrics, rect.Width());
  if (format & DT_CALCRECT) {
    int widest = 0;
    for (const Line& line : lines) widest = std::max(widest, metrics.horizontalAdvance(line.text));
    rect.Right = rect.Left + widest;
    rect.Bottom = rect.Top + int(lines.size()) * lineHeight;
    return rect.Height();
  }
  FitLines(lines, prepared, format, lineHeight, rect.Height());
  ElideLines(lines, format, metrics, rect.Width());
  const int textHeight = int(lines.size()) * lineHeight;
  const int top = FirstLineY(rect, textHeight, format);
  PaintLines(dc, lines, prepared, rect, format, top, lineHeight);
  if (format & (DT_VCENTER | DT_BOTTOM)) return top - rect.Top + textHeight;
  return textHeight;
}

}  // namespace quil
