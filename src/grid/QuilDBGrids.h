#pragma once
// QuilDBGrids: the data grid and its parts.
//
// How a data change travels: the data set notifies its TDataSource, which hands the
// event to TQuilGridDataLink. A scroll of the record window becomes Scroll(Distance):
// UpdateActive puts the base grid's Row on ActiveRecord + title offset, and the rows'
// pixels move by ScrollWindowEx so that only the exposed rows paint; at the bottom edge
// a double-buffered grid sizes the buffer again and repaints whole, as does a column
// whose image tiles with the data. A change of data
// becomes DataChanged: UpdateRowCount sizes the link's buffer to the rows that fit
// (BufferCount), composes title, data, blank and total rows, and the grid paints once.
// A change of fields becomes LayoutChanged.
//
// How a change of structure travels: every setter that changes shape calls
// LayoutChanged, which opens the layout transaction unless one is running
// (BeginLayout/EndLayout nest by counter) and ends it in InternalLayout: field map,
// columns bound to fields, the base grid's columns, fixed columns, title offset, total
// rows, row heights, the row window. A layout that cannot run now (a field removed
// while the data set has its controls disabled) posts CM_DEFERLAYOUT and runs later.
//
// How columns come about: with default columns, each layout makes one column for each
// visible field (InternalAdd, not Stored) and puts the automatic number, select and
// expand columns in front; customized columns are Stored, defined by the application or
// by RebuildColumns, and keep their field by name. A column's values follow defaults
// (field, grid) until assigned. A column stream (SaveToStream) writes a
// TQuilColumnsWrapper component in the framework's stream format; LoadFromStream reads
// it into a collection of the grid's column kind that leaves the grid alone, and
// copies that in with one layout.
//
// How a cell's text travels: the column reads its field (GetDisplayText for a cell,
// GetEditText for the editor) and hands the text to the grid's ColGetText, which passes
// each item of a multi-select value, or the whole text, through ColGetItem (record
// number, lookup, pick list), formats a cell's text and ends in OnColGetText. An edit
// goes back the other way: OnColSetText, ColSetText and ColSetItem, the field,
// OnColTextChanged.
//
// How a paint travels: the base grid's Paint draws the lines, then visits the cells that
// meet the update region. DrawCell works out the cell's look (TCellLook), with the edges
// of FixedStyle for a fixed cell, and sends title, indicator and total cells to their
// fixed faces: the background by FixedTheme, gradient or plain fill, the content (a
// title's bands across the columns that share them, its button, image, marker and
// caption laid out in its whole extent and clipped to what shows; a row mark; a total
// cell's box), and last the one frame routine of FixedStyle. A row cell takes its first
// colors (the column's color, stripes); a data cell then sets the link's ActiveRecord to
// its buffered record, reads its text, decides Highlight and Selections, lets the
// selection rules choose the brush, draws its own lines, and runs the default drawing
// (image, PaintColumnCell, the style's font and background, the selection fill, image
// and text through CellTextOut, the search mark) before OnDrawDataCell and
// OnDrawColumnCell. It puts ActiveRecord back and draws the focus frame last.
//
// How the user's layout travels: Loaded marks the grid's Settings; the first activation
// of the link then runs AutoLoadLayout inside DisablePosition: ReadLayout fills the
// layout list from the section of the ini file or registry key, and SetLayout moves,
// sizes, hides and expands each column it names and sets order, lines and stretch.
// The grid's destructor runs AutoSaveLayout: GetLayout builds the lines from the grid
// and SaveLayout replaces the section with them. OnLayout sees each list built and
// applied.
//
// How a switch of style travels: the style manager sends CM_STYLECHANGED down every
// control tree; the grid works out its fixed lines, spacing and border again, rebuilds
// its glyph lists in the new style's colors (RecreateMarkers) and repaints whole.

#include "grid/QuilColumnsWrapper.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumns.h"
#include "grid/QuilDBGridOptions.h"
#include "grid/QuilDBGridParts.h"
#include "grid/QuilGridDataLink.h"
#include "order/OrderText.h"
