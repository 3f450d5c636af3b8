#pragma once
// A plain base-grid descendant of 1,000 rows by 50 columns of text, with a title row and
// a row-number column. Its cells answer a generated text until the user edits them; the
// edited texts are all it keeps. The demo window, its test and the paint benchmark
// share it, so what they measure is what the window shows.

#include <QString>
#include <map>
#include <utility>
#include <vector>

#include "framework/controls/Grids.h"
#include "framework/graphics/Canvas.h"

namespace quil::demo {

constexpr int kDataRows = 1000;
constexpr int kDataCols = 50;

// The generated text of a scrollable cell, shared with the benchmark's peer model.
inline QString GeneratedCellText(int dataRow, int dataCol) {
  return QStringLiteral("R%1 C%2").arg(dataRow + 1).arg(dataCol + 1);
}

inline QString ColumnTitle(int dataCol) { return QStringLiteral("Column %1").arg(dataCol + 1); }

class TCellGrid : public TCustomGrid {
public:
  explicit TCellGrid(TComponent* owner) : TCustomGrid(owner) {
    SetColCount(kDataCols + 1);
    SetRowCount(kDataRows + 1);
    SetDefaultColWidth(80);
    SetDefaultRowHeight(22);
    SetColWidths(0, 48);
    SetOptions(Options() + TGridOptions{goColSizing, goRowSizing, goColMoving, goEditing, goTabs, goThumbTracking});
  }

  // The text a cell shows, in grid coordinates (the fixed row and column included).
  QString CellText(int col, int row) const {
    if (col == 0) return row == 0 ? QString() : QString::number(row);
    int dataCol = dataColOf_[col];
    if (row == 0) return ColumnTitle(dataCol);
    auto edited = edited_.find({dataCol, row - 1});
    return edited != edited_.end() ? edited->second : GeneratedCellText(row - 1, dataCol);
  }

protected:
  void DrawCell(int col, int row, const TRect& rect, TGridDrawState state) override {
    Canvas()->Brush()->SetStyle(bsClear);
    Canvas()->TextRect(rect, rect.Left + 4, rect.Top + 3, CellText(col, row));
    Canvas()->Brush()->SetStyle(bsSolid);
  }
  QString GetEditText(int col, int row) override { return CellText(col, row); }
  void SetEditText(int col, int row, const QString& value) override {
    edited_[{dataColOf_[col], row - 1}] = value;
    InvalidateCell(col, row);
  }
  // A dragged column takes its title and texts along.
  void ColumnMoved(int fromIndex, int toIndex) override {
    int dataCol = dataColOf_[fromIndex];
    dataColOf_.erase(dataColOf_.begin() + fromIndex);
    dataColOf_.insert(dataColOf_.begin() + toIndex, dataCol);
  }

private:
  std::vector<int> dataColOf_ = InitialColumns();  // grid column -> data column; [0] unused
  std::map<std::pair<int, int>, QString> edited_;  // (data column, data row) -> text

  static std::vector<int> InitialColumns() {
    std::vector<int> columns(kDataCols + 1);
    for (int col = 1; col <= kDataCols; ++col) columns[col] = col - 1;
    return columns;
  }
};

}  // namespace quil::demo
