// The row window: title rows, data rows over the link's buffered records, the blank
// row and the total rows, with their counts and heights.
#include <functional>
#include <vector>

#include "framework/graphics/Canvas.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"

namespace quil {

namespace {
const QString SampleText = QStringLiteral("Wg");
// Rows enough for any window while the base grid counts the rows that fit.
constexpr int CountingRowCount = 1000;

// Visits the visible columns of depth among first..last, and below each expanded one
// its own columns a depth further, as long as a title row of that depth exists.
void WalkTitles(const TQuilDBGridColumns& columns, int titleRows, int first, int last, int depth,
                const std::function<void(TQuilColumn*, int)>& visit) {
  for (int index = first; index <= last; ++index) {
    TQuilColumn* column = columns.Items(index);
    if (column->Depth() != depth || !column->GetVisible()) continue;
    visit(column, depth);
    if (column->GetExpanded() && depth + 1 < titleRows)
      WalkTitles(columns, titleRows, index + 1, column->GetExpandIndex(), depth + 1, visit);
  }
}
}  // namespace

void TQuilCustomDBGrid::ComputeTotalRows() {
  totalHeaderRows_ = optionsEx_.Contains(dgTotalHeader) ? 1 : 0;
  totalValuesRows_ = 0;
  if (optionsEx_.Contains(dgTotalValues))
    for (TQuilColumn* column : *columns_) totalValuesRows_ = std::max(totalValuesRows_, column->TotalValues()->Count());
  totalFooterRows_ = optionsEx_.Contains(dgTotalFooter) ? 1 : 0;
  totalRows_ = (optionsEx_.Contains(dgBlankRow) ? 1 : 0) + totalHeaderRows_ + totalValuesRows_ + totalFooterRows_;
  if (optionsEx_.Contains(dgTotalFields)) totalRows_ += totals_->FieldsRecordCount();
}

int TQuilCustomDBGrid::GetTotalRowCount() const {
  return optionsEx_.Contains(dgBlankRow) ? totalRows_ - 1 : totalRows_;
}

int TQuilCustomDBGrid::GetTotalFieldsRowCount() const {
  return GetTotalRowCount() - totalHeaderRows_ - totalValuesRows_ - totalFooterRows_;
}

int TQuilCustomDBGrid::GetRowLineWidth() const { return options_.Contains(dgRowLines) ? GridLineWidth() : 0; }

int TQuilCustomDBGrid::GetColLineWidth() const { return options_.Contains(dgColLines) ? GridLineWidth() : 0; }

int TQuilCustomDBGrid::GetRowHeight() const { return DefaultRowHeight() + GetRowLineWidth(); }

int TQuilCustomDBGrid::GetTitleHeight() const {
  int height = 0;
  for (int row = 0; row < titleOffset_; ++row) height += RowHeights(row) + GetRowLineWidth();
  return height;
}

int TQuilCustomDBGrid::GetTotalHeight() const {
  int height = 0;
  for (int row = RowCount() - totalRows_ + 1; row < RowCount(); ++row) height += RowHeights(row) + GetRowLineWidth();
  if (totalRows_ > 1 && GetAlignTotalsToBorder()) --height;
  return height;
}

int TQuilCustomDBGrid::GetDataRowsHeight() const { return std::max(1, GetDataRowCount()) * GetRowHeight(); }

int TQuilCustomDBGrid::GetDataHeight() const { return ClientHeight() - GetTitleHeight() - GetTotalHeight(); }

int TQuilCustomDBGrid::GetBlankHeight() const {
  int height = GetDataHeight() - GetDataRowsHeight();
  if (totalRows_ == 1 && GetAlignTotalsToBorder()) ++height;
  return height;
}

// FIXME: scrolling also asks for a horizontal scroll bar that takes room.
bool TQuilCustomDBGrid::GetAlignTotalsToBorder() const {
  return totalRows_ >= 1 && !IsGridThemed(false) && (BorderStyle() != bsSingle || !Ctl3D());
}

// FIXME: column sizing supplies the active stretch mode and scrolling a vertical scroll
// bar that takes room; until then nothing stretches.
bool TQuilCustomDBGrid::GetAlignStretchToBorder() const {
  const bool stretchActive = false;
  return stretchActive && (BorderStyle() != bsSingle || !Ctl3D());
}

int TQuilCustomDBGrid::GetVisibleRowCount() const { return std::max(1, VisibleRowCount() - totalRows_); }

int TQuilCustomDBGrid::GetDataRowCount() const { return dataLink_->Active() ? dataLink_->RecordCount() : 0; }

int TQuilCustomDBGrid::GetColsWidth(int count) const {
  int width = options_.Contains(dgIndicator) ? indicatorWidth_ + GetColLineWidth() : 0;
  for (int dataCol = 0; dataCol < std::min(count, columns_->Count()); ++dataCol) {
    TQuilColumn* column = columns_->Items(dataCol);
    if (column->GetShowing()) width += column->GetWidth() + GetColLineWidth();
  }
  return width;
}

int TQuilCustomDBGrid::GetColumnsWidth() const { return GetColsWidth(columns_->Count()); }

int TQuilCustomDBGrid::GetFixedColsWidth() const { return GetColsWidth(fixedCols_); }

// Total rows take their height at the bottom; the blank row above them takes what the
// data rows leave. forCounting instead puts the total rows' heights where the base grid
// counts the rows that fit, right below the titles, so that it counts only data rows.
void TQuilCustomDBGrid::ShapeTotalRows(bool forCounting) {
  const int fixedRows = TCustomGrid::FixedRows();
  const int lineWidth = GetRowLineWidth();
  if (forCounting) {
    for (int row = RowCount() - totalRows_; row < RowCount(); ++row) SetRowHeights(row, DefaultRowHeight());
    for (int row = fixedRows + 1; row < fixedRows + totalRows_; ++row) SetRowHeights(row, totalRowHeight_);
    SetRowHeights(fixedRows, -lineWidth);
    return;
  }
  for (int row = fixedRows; row < fixedRows + totalRows_; ++row) SetRowHeights(row, DefaultRowHeight());
  for (int row = RowCount() - totalRows_ + 1; row < RowCount(); ++row) SetRowHeights(row, totalRowHeight_);
  SetRowHeights(RowCount() - totalRows_, std::max(0, GetBlankHeight()) - lineWidth);
}

void TQuilCustomDBGrid::UpdateRowCount() {
  const int oldRowCount = RowCount();
  {
    ++rowCountLock_;
    TScopeExit lower([this] { --rowCountLock_; });
    SetRowCount(std::max(RowCount(), titleOffset_ + totalRows_ + 1));
    SetFixedRows(titleOffset_);
    if (dataLink_->Active() && dataLink_->RecordCount() > 0 && HandleAllocated()) {
      if (totalRows_ > 0) ShapeTotalRows(true);
      // FIXME: scrolling holds the column anchor on the current column with dgRowScroll.
      SetRowCount(CountingRowCount);
      dataLink_->SetBufferCount(GetVisibleRowCount());
      SetRowCount(dataLink_->RecordCount() + titleOffset_ + totalRows_);
      if (totalRows_ > 0) ShapeTotalRows(false);
      SetTopRow(TCustomGrid::FixedRows());
      UpdateActive();
    } else {
      SetRowCount(titleOffset_ + totalRows_ + 1);
      if (totalRows_ > 0) ShapeTotalRows(false);
    }
  }
  if (RowCount() != oldRowCount) {
    Invalidate();
  } else if (!DoubleBuffered() && HandleAllocated() && options_.Contains(dgRowLines) && totalRows_ == 0 &&
             (RowCount() - TCustomGrid::FixedRows()) * GetRowHeight() == ClientHeight() - GetTitleHeight()) {
    // The last row's bottom line falls outside the client area otherwise.
    InvalidateRect(RowBox(RowCount() - 1));
  }
}

void TQuilCustomDBGrid::RowHeightsChanged() {
  if (rowCountLock_ > 0) return;
  TCustomGrid::RowHeightsChanged();
}

void TQuilCustomDBGrid::MeasureRows() {
  TCanvas* canvas = Canvas();
  canvas->SetFont(Font());
  dataLineHeight_ = canvas->TextHeight(SampleText);
  SetDefaultRowHeight(linesCount_ * dataLineHeight_ + gridStyle_->DataRowSpace() + GetRowLineWidth());
  int headerLineHeight = 0;
  if (options_.Contains(dgTitles) && options_.Contains(dgTitleHeaders)) {
    canvas->SetFont(headerFont_.get());
    headerLineHeight = headerLinesCount_ * canvas->TextHeight(SampleText) + gridStyle_->HeaderRowSpace() +
                       GetRowLineWidth();
  }
  titleLineHeight_ = headerLineHeight;
  if (options_.Contains(dgTitles)) MeasureTitleRows();
  MeasureTotalRows();
}

// Title rows, one for each depth of expanded columns. An expanded column's title stands
// in the row of its depth; a leaf's title reaches down to the last title row, which
// takes what the rows above leave of the tallest leaf.
void TQuilCustomDBGrid::MeasureTitleRows() {
  TCanvas* canvas = Canvas();
  auto titleHeight = [&](TQuilColumn* column) {
    canvas->SetFont(column->Title()->Font());
    return titleLinesCount_ * canvas->TextHeight(SampleText) + gridStyle_->TitleRowSpace() +
           column->Title()->GetHeaderRowCount() * titleLineHeight_;
  };
  const int lastRow = titleOffset_ - 1;
  std::vector<int> heights(titleOffset_, 0);
  WalkTitles(*columns_, titleOffset_, 0, columns_->Count() - 1, 0, [&](TQuilColumn* column, int depth) {
    if (column->GetExpanded()) heights[depth] = std::max(heights[depth], titleHeight(column));
  });
  WalkTitles(*columns_, titleOffset_, 0, columns_->Count() - 1, 0, [&](TQuilColumn* column, int depth) {
    if (column->GetExpanded()) return;
    int height = titleHeight(column);
    for (int row = depth; row < lastRow; ++row) height -= heights[row];
    heights[lastRow] = std::max(heights[lastRow], height);
  });
  if (heights[0] == 0) {
    canvas->SetFont(titleFont_.get());
    heights[0] = titleLinesCount_ * canvas->TextHeight(SampleText) + gridStyle_->TitleRowSpace();
  }
  for (int row = 0; row < titleOffset_; ++row) SetRowHeights(row, heights[row]);
}

// FIXME: totals measure the active cells of each column in their own fonts.
void TQuilCustomDBGrid::MeasureTotalRows() {
  totalRowHeight_ = 0;
  if (totalRows_ == 0) return;
  TCanvas* canvas = Canvas();
  canvas->SetFont(totals_->Font());
  totalRowHeight_ = totals_->LinesCount() * canvas->TextHeight(SampleText) + gridStyle_->TotalRowSpace();
  for (int row = RowCount() - 1; row > RowCount() - totalRows_; --row) SetRowHeights(row, totalRowHeight_);
  SetRowHeights(RowCount() - totalRows_, std::max(0, GetBlankHeight()) - GetRowLineWidth());
}

TRect TQuilCustomDBGrid::RowBox(int row) const { return BoxRect(0, row, ColCount() - 1, row); }

}  // namespace quil
