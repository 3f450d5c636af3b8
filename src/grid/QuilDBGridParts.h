#pragma once
// The grid's small owned parts that the frame needs for its row metrics: the totals'
// line count, font and color; and the base of every part the grid owns.

#include <memory>

#include "framework/graphics/Font.h"
#include "framework/rtl/Persistent.h"

namespace quil {

class TQuilCustomDBGrid;

// A part owned by a grid, which names it in a stream's path.
class TQuilGridPart : public TPersistent {
public:
  explicit TQuilGridPart(TQuilCustomDBGrid* grid) : grid_(grid) {}
  TQuilCustomDBGrid* Grid() const { return grid_; }
  TPersistent* GetOwner() const override;

private:
  TQuilCustomDBGrid* grid_;
};

// FIXME: totals replace this with the totals collection, its data link, calculation
// and selection; until then nothing is calculated and the rows show empty.
class TQuilDBGridTotals : public TPersistent {
public:
  explicit TQuilDBGridTotals(TQuilCustomDBGrid* grid);
  ~TQuilDBGridTotals() override;

  TFont* Font() const { return font_.get(); }
  // Follows the grid's FixedColor until set to something else.
  TColor Color() const { return color_; }
  void SetColor(TColor value) { color_ = value; }
  int LinesCount() const { return 1; }
  // Some total cell has a calculation to run.
  bool CalcValues() const { return false; }
  // The totals show values of a selection.
  bool GetSelected() const { return false; }
  // Records of the totals' own data link, shown in the total fields rows.
  int FieldsRecordCount() const { return 0; }

private:
  TQuilCustomDBGrid* grid_;
  std::unique_ptr<TFont> font_;
  TColor color_ = clBtnFace;
};

}  // namespace quil
