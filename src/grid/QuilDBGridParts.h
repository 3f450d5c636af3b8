#pragma once
// The grid's small owned parts that the frame needs for its row metrics: the grid
// style's row spaces and the totals' line count and font; and the base of every part
// the grid owns.

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

// FIXME: visual styles replace this with the full style (margins, visual style kinds,
// Assign); the numbers here are those of the default look.
class TQuilGridStyle : public TPersistent {
public:
  explicit TQuilGridStyle(TQuilCustomDBGrid* grid) : grid_(grid) {}

  int DataRowSpace() const { return dataRowSpace_; }
  void SetDataRowSpace(int value) { Store(dataRowSpace_, value); }
  int HeaderRowSpace() const { return headerRowSpace_; }
  void SetHeaderRowSpace(int value) { Store(headerRowSpace_, value); }
  int TitleRowSpace() const { return titleRowSpace_; }
  void SetTitleRowSpace(int value) { Store(titleRowSpace_, value); }
  int TotalRowSpace() const { return totalRowSpace_; }
  void SetTotalRowSpace(int value) { Store(totalRowSpace_, value); }

private:
  void Store(int& member, int value);

  TQuilCustomDBGrid* grid_;
  int dataRowSpace_ = 4;
  int headerRowSpace_ = 8;
  int titleRowSpace_ = 8;
  int totalRowSpace_ = 8;
};

// FIXME: totals replace this with the totals collection, its data link, calculation
// and selection; until then nothing is calculated and the rows show empty.
class TQuilDBGridTotals : public TPersistent {
public:
  explicit TQuilDBGridTotals(TQuilCustomDBGrid* grid);
  ~TQuilDBGridTotals() override;

  TFont* Font() const { return font_.get(); }
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
};

}  // namespace quil
