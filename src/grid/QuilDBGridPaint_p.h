#pragma once
// What DrawCell works out for one cell and hands down its steps.

#include "framework/controls/Grids.h"
#include "framework/graphics/Colors.h"
#include "grid/QuilDBGridCellTypes.h"

namespace quil {

class TCanvas;
class TImageList;

struct TCellLook {
  // The look of the system or a custom style decides: the data cells, their font, the
  // grid's own background.
  bool systemStyle = false;
  bool styled = false;
  bool styledFont = false;
  bool styledClient = false;
  // The base grid's state of the cell, with gdFixed for total rows.
  TGridDrawState state;
  // gdFixed: a title, indicator or total cell, or a frozen column.
  bool fixed = false;
  int textMargin = 2;
  // Fixed cells with both lines drawn by the theme or a gradient.
  bool themed = false;
  bool gradient = false;
  // The background is a selection fill (a gradient or, with elementFill, a theme element).
  bool gradientFlag = false;
  bool elementFill = false;
  // A total cell drawn as one with its neighbours, and whether it begins or ends the run.
  bool merged = false;
  bool mergedFirst = false;
  bool mergedLast = false;
  // The face of a fixed cell while both lines are drawn, else all off (FixedLook).
  unsigned softFlag = 0;   // BF_SOFT for the softer edges
  unsigned flatFlag = 0;   // BF_FLAT for the flat right and bottom edges
  bool outerEdge = false;  // a raised edge stands where the black lines would
  bool custom = false;     // a custom style is active
  bool systemFixed = false;
  bool systemText = false;
  bool forceButton = false;  // title buttons and sort arrows of the theme
  bool forceMarker = false;
  bool optionButton = false;  // dgForceSystemButton and dgForceSystemMarker by themselves
  bool optionMarker = false;
  bool gradientEdge = false;  // a gradient that also covers the cell's edges
  bool hasBox = false;        // a total cell with a sunken box inside its frame
  // The cell without the title offset and the indicator, as DrawCell's ACol and ARow.
  int dataCol = 0;
  int dataRow = 0;
  // L: the row after the last data row; the blank row when there are total rows.
  int lastRow = 0;
  // The row of the active record, before a cell moved it.
  int activeRow = -1;
};

// The brush of a data cell after the selection rules, each overriding the one before:
// multi-selected, the current row, the current cell. A current cell without a color of
// its own takes back the column's font color instead.
// The state in which a fixed cell's face is drawn.
enum class TFixedCellState { Normal, Pressed, Hot, Disabled };

// count parallel lines from `from` to `to`, each moved by step, with a solid pen of
// width 1 of their own: the canvas' pen stays as it was.
void DrawPenLines(TCanvas* canvas, TColor color, TPenMode mode, TPoint from, TPoint to, TPoint step = {0, 0},
                  int count = 1);
// A one-pixel line from (x1, y1) up to (x2, y2), with a pen of its own.
void DrawFixedLine(TCanvas* canvas, TColor color, int x1, int y1, int x2, int y2);
// Image index of list, centered in rect (see DrawListImage for direct and copyBackground).
void DrawCenteredImage(TImageList* list, TCanvas* canvas, const TRect& rect, int index, bool direct,
                       bool copyBackground);

struct TDataCellBrush {
  TColor brush = clNone;
  bool columnFontColor = false;
};
TDataCellBrush ChooseDataCellBrush(TColor brush, bool highlight, TSelections selections, bool fixed, bool activeRow,
                                   const TSelectionColors& colors);

}  // namespace quil
