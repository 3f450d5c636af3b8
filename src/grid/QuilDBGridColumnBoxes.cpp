// The images of a column's check boxes and expand boxes: which image a record's value or
// expansion picks, and the bitmap that the cell draws, a theme element or a built-in
// glyph.
#include "framework/db/DataSet.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/ImageList.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumn.h"

namespace quil {

namespace {

// An active grid over no records shows no boxes.
bool OnEmptyData(const TQuilCustomDBGrid& grid) { return grid.DataLink()->Active() && grid.DataSet()->IsEmpty(); }

// The themed box's look, as an offset in the four looks of a check box state: normal,
// hot, pressed, disabled. The painted cell is hot or pressed while the pointer is on it
// and a click there would toggle it.
int CheckBoxLook(const TQuilCustomDBGrid& grid, TCheckBoxToggle toggle) {
  int look = grid.Enabled() ? 0 : 3;
  const TGridCoord track = grid.TrackCell();
  const bool painted = track == TGridCoord{grid.PaintedCol(), grid.PaintedRow()};
  const bool current = track == TGridCoord{grid.Col(), grid.Row()};
  if (painted && (toggle == ctOnCellClick || (toggle == ctSelectClick && current))) {
    if (grid.CellPressed()) look = 2;
    else if (grid.CellHot()) look = 1;
  }
  return look;
}

}  // namespace

int TQuilColumn::ShownBoxIndex(int index, bool themed) const {
  const bool inImages = p_.images && index < p_.images->Count();
  return !inImages && (themed || p_.images) ? index % 3 : index;
}

std::unique_ptr<TBitmap> TQuilColumn::BuiltInBoxImage(TImageList* list, int index) const {
  TQuilCustomDBGrid* grid = Grid();
  auto bitmap = std::make_unique<TBitmap>();
  if (grid->Enabled()) {
    list->GetBitmap(index, bitmap.get());
  } else {
    const TColor blendColor = list->BlendColor();
    const TDrawingStyle drawingStyle = list->DrawingStyle();
    TScopeExit restore([&] {
      list->SetBlendColor(blendColor);
      list->SetDrawingStyle(drawingStyle);
    });
    list->SetBlendColor(grid->FixedColor());
    list->SetDrawingStyle(dsSelected);
    list->GetBitmap(index, bitmap.get());
  }
  bitmap->SetTransparentColor(GlyphTransparentColor);
  return bitmap;
}

// --- Check box

int TQuilColumn::GetCheckBoxImageIndex() const {
  const int state = IsCheckBoxValue(true) ? 1 : IsCheckBoxValue(false) ? 0 : 2;
  TQuilCustomDBGrid* grid = Grid();
  const bool themed = grid && grid->IsGridThemed(p_.checkBoxThemed);
  return ShownBoxIndex(state + 3 * p_.checkBoxKind, themed);
}

std::unique_ptr<TBitmap> TQuilColumn::GetCheckBoxImage() const {
  TQuilCustomDBGrid* grid = Grid();
  if (!grid || OnEmptyData(*grid)) return nullptr;
  const int index = GetCheckBoxImageIndex();
  TImageList* list = grid->CheckBoxes();
  if (grid->IsGridThemed(p_.checkBoxThemed)) {
    const auto element = TThemedButton(tbCheckBoxUncheckedNormal + 4 * (index % 3) +
                                       CheckBoxLook(*grid, p_.checkBoxToggle));
    const TThemedElementDetails details = TCustomStyleServices::GetElementDetails(element);
    // The system's box takes the built-in glyph's size, so that it scales with the grid;
    // a custom style's box its own, which the style gives for 96 pixels per inch.
    TSize size{list->Width(), list->Height()};
    if (TStyleManager::IsCustomStyleActive() && StyleServices()->GetElementSize(nullptr, details, esActual, size)) {
      const int ppi = grid->GetCurrentPPI();
      size = TSize{MulDiv(size.cx, ppi, 96), MulDiv(size.cy, ppi, 96)};
    }
    return std::make_unique<TThemedBitmap>(details, size.cx, size.cy);
  }
  std::unique_ptr<TBitmap> bitmap = BuiltInBoxImage(list, index);
  const TRect frame = Rect(0, 0, bitmap->Width(), bitmap->Height());
  grid->DrawCheckBox(bitmap->Canvas(), frame, grid->Enabled() ? p_.checkBoxStyle : cbMild);
  return bitmap;
}

// --- Expand box

int TQuilColumn::GetExpandBoxImageIndex() const {
  int state = IsExpandableBox() ? int(IsExpandedBox()) : 2;
  TQuilCustomDBGrid* grid = Grid();
  if (!p_.images && grid) {
    int chosen = state;
    grid->CalcImageIndex(const_cast<TQuilColumn*>(this), chosen);
    if (chosen >= 0 && chosen <= 2) state = chosen;
  }
  const bool themed = grid && grid->IsGridThemed(p_.expandBoxThemed);
  return ShownBoxIndex(state + 3 * p_.expandBoxSize, themed);
}

std::unique_ptr<TBitmap> TQuilColumn::GetExpandBoxImage() const {
  TQuilCustomDBGrid* grid = Grid();
  if (!grid || OnEmptyData(*grid)) return nullptr;
  const int index = GetExpandBoxImageIndex();
  if (!grid->IsGridThemed(p_.expandBoxThemed)) return BuiltInBoxImage(grid->ExpandBoxes(), index);
  // The row without a box still has an image, an empty one, so that it shows no text.
  const int state = index % 3;
  const TThemedTreeview glyph = state == 0 ? ttGlyphClosed : state == 1 ? ttGlyphOpened : ttTreeviewDontCare;
  const TThemedElementDetails details = TCustomStyleServices::GetElementDetails(glyph);
  TSize size{0, 0};
  if (state < 2 && StyleServices()->GetElementSize(nullptr, details, esActual, size)) {
    size.cx += 2 * p_.expandBoxSize;
    size.cy += 2 * p_.expandBoxSize;
  }
  const int ppi = grid->GetCurrentPPI();
  return std::make_unique<TThemedBitmap>(details, MulDiv(size.cx, ppi, 96), MulDiv(size.cy, ppi, 96));
}

}  // namespace quil
