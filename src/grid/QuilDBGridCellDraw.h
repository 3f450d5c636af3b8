#pragma once
// The drawing of a cell's content, apart from the grid: its text with wrap, ellipsis,
// alignment and the place of a search match, and its picture with alignment, scaling
// and tiles. A cell paints from these in DrawCell's default drawing.

#include <QString>

#include "framework/graphics/Types.h"
#include "framework/rtl/Alignment.h"
#include "grid/QuilDBGridColumnTypes.h"
#include "grid/QuilDBGridSearch.h"

namespace quil {

class TCanvas;
class TPersistent;

// Where CellTextOut found the search text in its cell; an empty rect when nowhere.
struct TCellTextMatch {
  TRect rect;
  QString text;
};

// The text as it fits width: cut after the last character that leaves room for "...".
QString CutTextToWidth(TCanvas* canvas, const QString& text, int width);

// The text with line breaks where a line grows wider than width: a blank becomes CR, and
// a CR goes in behind a CJK ideograph. A line with nowhere to break stays whole. limit
// counts the breaks that may be made; -1 for no limit.
QString BreakTextLines(TCanvas* canvas, const QString& text, int width, int limit);

// Writes text into rect, one line per CR, LF or CR LF, as many as fit (at least one).
// The brush, unless clear, fills rect from each line's top down. rightToLeft keeps the
// alignment on a mirrored canvas. With a search text the first match of the cell is
// measured and returned.
TCellTextMatch CellTextOut(TCanvas* canvas, TRect rect, int marginX, int marginY, const QString& text,
                           TAlignment alignment, bool rightToLeft, bool ellipsis, bool wordWrap,
                           TVAlignment vAlignment, const QString& searchText, TQuilSearchOptions searchOptions);

// Where text and image go in a cell of a column with an image margin (below 1: the whole
// cell for both) at a tree level; mirrored places both from the right.
TRect CellTextRect(const TRect& cell, int imageMargin, int level, bool mirrored);
TRect CellImageRect(const TRect& cell, int imageMargin, int level, bool mirrored);

// How CellDrawImage places a picture.
struct TCellImageLayout {
  TAlignment alignment = taLeftJustify;
  bool rightToLeft = false;
  TVAlignment vAlignment = tvCenter;
  TImageDraw imageDraw = idCenter;
  int offsetX = 0;
  int offsetY = 0;
  bool quickDraw = true;
  bool transparent = false;
  // Keep what the canvas shows under a transparent picture; else the brush color.
  bool copyBackground = false;
};

// Draws graphic (a graphic, a bitmap, a graphic field or a themed bitmap) into rect
// through a bitmap of rect's size. Tiles take their origin from the cell or from the
// grid as the kind says; rect is in the grid's coordinates.
void CellDrawImage(TCanvas* canvas, const TRect& rect, TPersistent* graphic, const TCellImageLayout& layout);

}  // namespace quil
