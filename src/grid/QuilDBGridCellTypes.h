#pragma once
// The vocabulary of cell text and cell painting: the text kinds, the selection states
// of a painted cell and the events of both.

#include <QString>

#include "framework/controls/Grids.h"
#include "framework/graphics/Colors.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Sets.h"

namespace quil {

class TField;
class TFont;
class TObject;
class TPersistent;
class TQuilColumn;

// Text for the editor, for a cell, for output such as copying and reports.
enum TTextKind { tkEdit, tkDisplay, tkReport };

// What the painted cell is part of; PaintColumnCell gets the set.
enum TSelection { slCellSelected, slRowSelected, slMultiSelected, slCellFixed, slRowStriped };
using TSelections = TSet<TSelection>;

// The text events have no sender.
using TColGetTextEvent = TEvent<void(TQuilColumn* column, QString& text, TTextKind textKind)>;
using TColSetTextEvent = TEvent<void(TQuilColumn* column, QString& text)>;
// column is none for the indicator.
using TCalcImageIndexEvent = TEvent<void(TObject* sender, TQuilColumn* column, int& index)>;
using TDrawDataCellEvent = TEvent<void(TObject* sender, const TRect& rect, TField* field, TGridDrawState state)>;
using TDrawColumnCellEvent =
    TEvent<void(TObject* sender, const TRect& rect, int dataCol, TQuilColumn* column, TGridDrawState state)>;
// color comes in as the brush and goes out as the brush of all that follows; image may
// be replaced by a graphic that the handler keeps.
using TPaintColumnCellEvent =
    TEvent<void(TObject* sender, const TRect& rect, int dataCol, TQuilColumn* column, bool highlight,
                TSelections selections, TColor& color, TFont* font, TPersistent*& image)>;

}  // namespace quil
