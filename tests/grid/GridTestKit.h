#pragma once
// Shared pieces of the grid tests: a grid that counts the cells it draws and exposes
// its protected hooks, and a shown form with the grid over an in-memory people table.

#include <QCoreApplication>
#include <QImage>
#include <QScreen>
#include <QWidget>
#include <gtest/gtest.h>
#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "framework/controls/Application.h"
#include "framework/controls/Forms.h"
#include "framework/controls/MessageQueue.h"
#include "framework/db/DbTestKit.h"
#include "grid/QuilDBGrids.h"

namespace gridtest {

using quil::TRect;

// Raw columns of the people grid: the indicator, ID, Name, City, Amount.
namespace peoplecols {
constexpr int IndicatorCol = 0;
constexpr int IdCol = 1;
constexpr int NameCol = 2;
constexpr int CityCol = 3;
constexpr int AmountCol = 4;
}  // namespace peoplecols

// Sets the pixels per inch that controls report for the length of a test.
class TPixelsPerInch {
public:
  explicit TPixelsPerInch(int ppi) { quil::Screen->SetPixelsPerInchOverride(ppi); }
  ~TPixelsPerInch() { quil::Screen->SetPixelsPerInchOverride(0); }
};

class TProbeGrid : public quil::TQuilDBGrid {
public:
  using TQuilDBGrid::TQuilDBGrid;
  using TQuilDBGrid::CanEditModify;
  using TQuilDBGrid::CanEditShow;
  using TQuilDBGrid::ColExit;
  using TQuilDBGrid::GetEditLimit;
  using TQuilDBGrid::GetEditMask;
  using TQuilDBGrid::GetEditText;
  using TQuilDBGrid::SetEditText;

  // Cells drawn since the last ClearDrawn, by base grid row and column.
  std::map<std::pair<int, int>, int> drawn;
  int colExits = 0;
  // Windows made for the grid, the first one included.
  int windowsMade = 0;
  // Paints of the window's frame that reached the corner between the scroll bars.
  int cornerPaints = 0;
  // LayoutFromDataSet at each LayoutChanged.
  std::vector<bool> layoutSources;
  // Where ColExit moves the cursor to itself; -1 leaves it to the grid's own exit.
  int exitMovesTo = -1;
  // The arguments of each TotalsChanged.
  std::vector<std::pair<quil::TTotalResult, quil::TField*>> totalsChanges;

  void InvalidateCorner() override {
    ++cornerPaints;
    TQuilDBGrid::InvalidateCorner();
  }
  void ClearDrawn() { drawn.clear(); }
  int DrawnCount() const {
    int count = 0;
    for (const auto& entry : drawn) count += entry.second;
    return count;
  }
  // The rows that had any cell drawn.
  std::set<int> DrawnRows() const {
    std::set<int> rows;
    for (const auto& entry : drawn) rows.insert(entry.first.first);
    return rows;
  }
  std::set<int> DrawnCols() const {
    std::set<int> cols;
    for (const auto& entry : drawn) cols.insert(entry.first.second);
    return cols;
  }

protected:
  void DrawCell(int col, int row, const TRect& rect, quil::TGridDrawState state) override {
    ++drawn[{row, col}];
    TQuilDBGrid::DrawCell(col, row, rect, state);
  }
  void TotalsChanged(quil::TTotalResult totalResult, quil::TField* field) override {
    totalsChanges.emplace_back(totalResult, field);
    TQuilDBGrid::TotalsChanged(totalResult, field);
  }
  void LayoutChanged() override {
    layoutSources.push_back(LayoutFromDataSet());
    TQuilDBGrid::LayoutChanged();
  }
  void ColExit() override {
    ++colExits;
    TQuilDBGrid::ColExit();
    if (exitMovesTo >= 0) SetCol(exitMovesTo);
  }
  void CreateWnd() override {
    ++windowsMade;
    TQuilDBGrid::CreateWnd();
  }
};

// A form showing a grid bound to a people table of `rows` records.
class GridFixture : public ::testing::Test {
protected:
  // A test that watches more than TProbeGrid does opens its own kind of probe grid.
  template <typename Grid = TProbeGrid>
  void Open(int rows, int gridHeight = 240) {
    OpenWith<Grid>([rows](quil::TClientDataSet& people) { dbtest::FillPeople(people, rows); }, gridHeight);
  }
  // The same over a data set that fill defines and fills.
  template <typename Grid = TProbeGrid>
  void OpenWith(const std::function<void(quil::TClientDataSet&)>& fill, int gridHeight = 240) {
    form = new quil::TForm(nullptr);
    form->SetBounds(0, 0, 520, gridHeight + 40);
    dataSet = new dbtest::TWindowCheckedDataSet(form);
    fill(*dataSet);
    source = new quil::TDataSource(form);
    source->SetDataSet(dataSet);
    grid = new Grid(form);
    grid->SetParent(form);
    grid->SetBounds(10, 10, 480, gridHeight);
    grid->SetDataSource(source);
    form->Show();
    ASSERT_TRUE(form->Handle()->isVisible());
    Settle();
  }
  void TearDown() override { delete form; }

  // Delivers what is posted and paints what is pending, then forgets the cells drawn.
  void Settle() {
    quil::DeliverPostedMessages();
    QCoreApplication::processEvents();
    grid->Update();
    grid->ClearDrawn();
  }
  // Paints what the last step left invalid.
  void Paint() {
    grid->Update();
    QCoreApplication::processEvents();
  }
  // What the grid's window shows, frame included. Grabbing paints whatever is pending,
  // so it tells what a paint looks like, never whether the grid asked for one.
  QImage Grab() const { return grid->Handle()->grab().toImage(); }
  static quil::TColor At(const QImage& image, int x, int y) {
    const QRgb pixel = image.pixel(x, y);
    return quil::RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
  }
  // The classic look: no theme and no gradient, so that each fill is a color as set.
  void Classic() {
    grid->SetDrawingStyle(quil::gdsClassic);
    Paint();
  }
  // A cell of the base grid where a grab of the window shows it.
  TRect Cell(int rawCol, int rawRow) const { return InClient(grid->CellRect(rawCol, rawRow)); }
  TRect InClient(TRect rect) const {
    const int border = (grid->Width() - grid->ClientWidth()) / 2;
    rect.Offset(border, border);
    return rect;
  }
  // A pixel near the bottom right corner of a cell, where its short text never reaches.
  static quil::TColor Background(const QImage& image, const TRect& cell) {
    return At(image, cell.Right - 3, cell.Bottom - 3);
  }
  static int DarkestGray(const QImage& image, const TRect& rect) {
    int darkest = 255;
    for (int y = rect.Top; y < rect.Bottom; ++y)
      for (int x = rect.Left; x < rect.Right; ++x) darkest = std::min(darkest, qGray(image.pixel(x, y)));
    return darkest;
  }
  // Whether a rectangle of the grab holds pixels darker than the background: text.
  static bool HasInk(const QImage& image, const TRect& rect) { return DarkestGray(image, rect) < 100; }
  // Saves the image for a look by eye when QUIL_GRAPHICS_SNAPSHOTS names a folder.
  static void Save(const QImage& image, const char* name) {
    const QString folder = qEnvironmentVariable("QUIL_GRAPHICS_SNAPSHOTS");
    if (!folder.isEmpty()) image.save(folder + QLatin1Char('/') + QLatin1String(name) + ".png");
  }
  // Data rows that fit, worked out from the row heights alone; the last row's bottom
  // line may fall outside.
  int RowsThatFit(int totalHeight = 0) const {
    const int line = grid->GridLineWidth();
    const int dataArea = grid->ClientHeight() - (grid->RowHeights(0) + line) - totalHeight;
    return std::max(1, (dataArea + line) / (grid->DefaultRowHeight() + line));
  }
  // What the grid shows after the pending paints, from the screen's backing store: a
  // grab would paint the widget anew and hide what scrolling left there.
  QImage OnScreen() {
    Paint();
    QWidget* window = grid->Handle()->window();
    const QImage screen = window->screen()->grabWindow(window->winId()).toImage();
    const QPoint origin = grid->Handle()->mapTo(window, QPoint(0, 0));
    return screen.copy(origin.x(), origin.y(), grid->Handle()->width(), grid->Handle()->height());
  }

  quil::TForm* form = nullptr;
  dbtest::TWindowCheckedDataSet* dataSet = nullptr;
  quil::TDataSource* source = nullptr;
  TProbeGrid* grid = nullptr;
};

}  // namespace gridtest
