// The properties of the titles, their header bands, the indicator and the corner; the
// fixed cells paint from them (QuilDBGridPaintFixed.cpp and its neighbours).
#include "framework/controls/Menus.h"
#include "framework/graphics/Font.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumn_p.h"

namespace quil {

namespace {

bool DiffersFromDefaultFont(const TFont& font) {
  const TFont standard;
  return !SameFont(font, standard);
}

// Keeps a menu's free notification with the grid while the grid refers to it.
void SwapMenu(TComponent* grid, TPopupMenu*& member, TPopupMenu* value) {
  if (member == value) return;
  if (member) member->RemoveFreeNotification(grid);
  member = value;
  if (value) value->FreeNotification(grid);
}

}  // namespace

void TQuilCustomDBGrid::SetTitleFont(const TFont* value) {
  titleFont_->Assign(value);
  InvalidateEditor();
}

// The bands take their font and color only while they show.
void TQuilCustomDBGrid::SetHeaderFont(const TFont* value) {
  if (!options_.Contains(dgTitles) || !options_.Contains(dgTitleHeaders)) return;
  headerFont_->Assign(value);
}

void TQuilCustomDBGrid::SetHeaderColor(TColor value) {
  if (value == headerColor_ || !options_.Contains(dgTitles) || !options_.Contains(dgTitleHeaders)) return;
  headerColor_ = value;
  LayoutChanged();
}

bool TQuilCustomDBGrid::IsTitleFontStored() const { return !ParentFont() && DiffersFromDefaultFont(*titleFont_); }

bool TQuilCustomDBGrid::IsHeaderFontStored() const { return !ParentFont() && DiffersFromDefaultFont(*headerFont_); }

void TQuilCustomDBGrid::SetTitleImages(TImageList* value) {
  if (ReplaceReference(titleImages_, value) && options_.Contains(dgTitles)) LayoutChanged();
}

void TQuilCustomDBGrid::SetFillerIndex(int value) {
  if (value == fillerIndex_) return;
  fillerIndex_ = value;
  if (options_.Contains(dgTitles) && options_.Contains(dgIndicator)) InvalidateTitle(nullptr);
}

void TQuilCustomDBGrid::SetFillerPopupMenu(TPopupMenu* value) { SwapMenu(this, fillerPopupMenu_, value); }

void TQuilCustomDBGrid::SetIndicatorPopupMenu(TPopupMenu* value) { SwapMenu(this, indicatorPopupMenu_, value); }

}  // namespace quil
