// The rules of a data cell's paint under the system style and custom styles: the pen of
// a white line, the background and font a style gives, the shape of a selected row,
// the search mark, lines left to a gradient, pictures of a graphic field, and when the
// focus frame shows.
#include <QImage>
#include <cstdlib>
#include <map>
#include <set>

#include "GridTestKit.h"
#include "framework/controls/StdCtrls.h"
#include "framework/db/BinaryFields.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Pen.h"
#include "framework/graphics/StyleServices.h"

using namespace quil;
using gridtest::GridFixture;
using namespace gridtest::peoplecols;

namespace {

// Raw rows: the current record's, and two below it, on an even and an odd data row.
constexpr int CurrentRow = 1;
constexpr int EvenRow = 3;
constexpr int OddRow = 4;

class PaintRules : public GridFixture {
protected:
  void TearDown() override {
    GridFixture::TearDown();
    TStyleManager::SetStyle(TStyleManager::SystemStyleName());
  }
  void Repaint() {
    grid->Invalidate();
    Paint();
  }
  // The font and brush that the default drawing leaves for OnDrawColumnCell, by raw
  // column and row.
  struct TLeftOver {
    TColor font = clNone;
    TColor brush = clNone;
  };
  void WatchLeftOvers() {
    grid->OnDrawColumnCell = [this](TObject*, const TRect&, int, TQuilColumn*, TGridDrawState) {
      leftOvers[{grid->PaintedCol(), grid->PaintedRow()}] = {grid->Canvas()->Font()->Color(),
                                                             grid->Canvas()->Brush()->Color()};
    };
  }
  TLeftOver LeftOver(int rawCol, int rawRow) {
    leftOvers.clear();
    Repaint();
    return leftOvers[{rawCol, rawRow}];
  }
  static TColor SchemeColor(TSchemeRole role) { return StyleServices()->Scheme()[role]; }
  // What a flat selection fill of color paints: the gradient's own light shade of it.
  TColor FlatFill(TColor color) const {
    TBitmap bitmap(1, 1);
    grid->Gradient()->FillCell(bitmap.Canvas(), Rect(0, 0, 1, 1), color, true);
    return bitmap.Canvas()->Pixel(0, 0);
  }
  // Whether any pixel of rect has exactly color.
  static bool Shows(const QImage& image, const TRect& rect, TColor color) {
    for (int y = rect.Top; y < rect.Bottom; ++y)
      for (int x = rect.Left; x < rect.Right; ++x)
        if (At(image, x, y) == color) return true;
    return false;
  }

  // Two colors a step of a gradient apart.
  static bool Near(TColor a, TColor b) {
    return std::abs(GetRValue(a) - GetRValue(b)) <= 4 && std::abs(GetGValue(a) - GetGValue(b)) <= 4 &&
           std::abs(GetBValue(a) - GetBValue(b)) <= 4;
  }

  std::map<std::pair<int, int>, TLeftOver> leftOvers;
};

// --- The pen of the grid lines

TEST_F(PaintRules, AWhiteLineTakesTheWhitePenModeOnlyUnderAStyle) {
  Open(5);
  grid->SetDataRowLineColor(clWhite);
  std::set<TPenMode> whitePens;
  grid->Canvas()->SetOnChange([&](TObject*) {
    const TPen* pen = grid->Canvas()->Pen();
    if (pen->Color() == clWhite) whitePens.insert(pen->Mode());
  });
  Repaint();
  EXPECT_EQ(whitePens, std::set<TPenMode>{pmWhite}) << "the system style";
  EXPECT_EQ(grid->Canvas()->Pen()->Mode(), pmCopy) << "the canvas' pen comes back";
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  whitePens.clear();
  Repaint();
  EXPECT_EQ(whitePens, std::set<TPenMode>{pmWhite}) << "a custom style";
  TStyleManager::SetStyle(TStyleManager::SystemStyleName());
  Classic();
  whitePens.clear();
  Repaint();
  EXPECT_EQ(whitePens, std::set<TPenMode>{pmCopy}) << "no style";
  grid->Canvas()->SetOnChange(nullptr);
}

// --- The background a style gives

TEST_F(PaintRules, UnderAStyleTheCurrentRowAwayFromTheCursorTakesTheStylesRowColor) {
  Open(5);
  grid->SetSelectRowColor(clYellow);  // under a style only a switch
  Repaint();
  EXPECT_EQ(Background(Grab(), Cell(CityCol, CurrentRow)), FlatFill(grid->GetSelectRowSelected()));
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  Repaint();
  EXPECT_EQ(Background(Grab(), Cell(CityCol, CurrentRow)), FlatFill(grid->GetSelectRowSelected()));
  grid->SetSelectRowColor(clNone);
  Repaint();
  EXPECT_EQ(Background(Grab(), Cell(CityCol, CurrentRow)), ColorToRGB(StyleServices()->GetStyleColor(scGrid)));
}

TEST_F(PaintRules, UnderTheSystemStyleTheCurrentCellIsAnElementOverABrushOfItsOwn) {
  Open(5);
  WatchLeftOvers();
  // A color of the cell's own gives way to the system style's.
  grid->OnPaintColumnCell = [](TObject*, const TRect&, int, TQuilColumn*, bool, TSelections, TColor& color, TFont*,
                               TPersistent*&) { color = clLime; };
  EXPECT_EQ(LeftOver(IdCol, CurrentRow).brush, clGradientInactiveCaption);
  EXPECT_EQ(LeftOver(NameCol, EvenRow).brush, clLime);
  const QImage image = Grab();
  EXPECT_EQ(Background(image, Cell(IdCol, CurrentRow)), SchemeColor(srHighlight)) << "the selected cell element";
  grid->SwitchOptions({dgRowSelect}, true);
  EXPECT_EQ(LeftOver(NameCol, CurrentRow).brush, clWindow);
  EXPECT_EQ(Background(Grab(), Cell(NameCol, CurrentRow)), SchemeColor(srRowSelected)) << "the row's element";
}

TEST_F(PaintRules, StripesUnderAStyledClientTakeTheStylesAlternateRowColor) {
  Open(10);
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  grid->SetStripeColor(clYellow);  // under a styled client only a switch
  Repaint();
  QImage image = Grab();
  ASSERT_EQ(ColorToRGB(StyleServices()->GetStyleColor(scGrid)), clWhite);
  EXPECT_EQ(Background(image, Cell(CityCol, OddRow)), SchemeColor(srAlternateRow1));
  EXPECT_EQ(Background(image, Cell(CityCol, EvenRow)), clWhite);
  grid->SetStyleElements({seFont, seBorder});
  Repaint();
  image = Grab();
  EXPECT_EQ(Background(image, Cell(CityCol, OddRow)), FlatFill(clYellow));
  EXPECT_EQ(Background(image, Cell(CityCol, EvenRow)), ColorToRGB(grid->Color()));
}

// --- A selected row drawn as one element

// Under a custom style the classic look fills each cell's part of the element without a
// clip, so that the parts show how far each reaches: over the lines between the cells,
// never past the row's two ends. Mirrored, the row runs from the right, also where its
// columns read left to right.
enum TRowDirection { rdLeftToRight, rdMirrored, rdMirroredLeftToRightColumns };

class RowElement : public PaintRules, public ::testing::WithParamInterface<TRowDirection> {
protected:
  bool Mirrored() const { return GetParam() != rdLeftToRight; }
  // The line after a column in reading order, and the one before it, in the grab.
  int LineAfter(int rawCol) const {
    const TRect cell = Cell(rawCol, CurrentRow);
    return Mirrored() ? cell.Left - 1 : cell.Right;
  }
  int LineBefore(int rawCol) const {
    const TRect cell = Cell(rawCol, CurrentRow);
    return Mirrored() ? cell.Right : cell.Left - 1;
  }
};

TEST_P(RowElement, JoinsTheCellsOfASelectedRow) {
  Open(5);
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  Classic();
  grid->SwitchOptions({dgRowSelect}, true);
  for (int rawCol : {IdCol, NameCol, CityCol, AmountCol}) grid->Columns()->Items(rawCol - 1)->SetWidth(80);
  if (Mirrored()) grid->SetBiDiMode(bdRightToLeft);
  if (GetParam() == rdMirroredLeftToRightColumns)
    for (int dataCol = 0; dataCol < grid->Columns()->Count(); ++dataCol)
      grid->Columns()->Items(dataCol)->SetSuppressRTL(true);
  Paint();
  const TColor row = SchemeColor(srRowSelected);
  const TRect first = Cell(IdCol, CurrentRow);
  const int y = (first.Top + first.Bottom) / 2;
  QImage image = Grab();
  Save(image, Mirrored() ? "row-element-mirrored" : "row-element");
  // A line of the grid, in a row that is not selected.
  const TColor line = At(image, LineAfter(CityCol), Cell(CityCol, EvenRow).Top + 3);
  ASSERT_NE(line, row);
  for (int rawCol : {IdCol, NameCol, AmountCol}) EXPECT_EQ(Background(image, Cell(rawCol, CurrentRow)), row);
  for (int rawCol : {IdCol, NameCol, CityCol})
    EXPECT_EQ(At(image, LineAfter(rawCol), y), row) << "the line after column " << rawCol;
  EXPECT_EQ(At(image, LineAfter(AmountCol), y), line) << "the last column reaches no further";
  EXPECT_NE(At(image, LineBefore(IdCol), y), row) << "nor the first one";
  // A row of one column is a selected cell, inside its lines.
  for (int rawCol : {NameCol, CityCol, AmountCol}) grid->Columns()->Items(rawCol - 1)->SetVisible(false);
  Paint();
  image = Grab();
  EXPECT_EQ(Background(image, Cell(IdCol, CurrentRow)), SchemeColor(srHighlight));
  EXPECT_NE(At(image, LineAfter(IdCol), y), SchemeColor(srHighlight));
  EXPECT_NE(At(image, LineBefore(IdCol), y), SchemeColor(srHighlight));
}

std::string RowDirectionName(const ::testing::TestParamInfo<TRowDirection>& info) {
  static const char* const names[] = {"LeftToRight", "Mirrored", "MirroredLeftToRightColumns"};
  return names[info.param];
}

INSTANTIATE_TEST_SUITE_P(PaintRules, RowElement,
                         ::testing::Values(rdLeftToRight, rdMirrored, rdMirroredLeftToRightColumns),
                         RowDirectionName);

// --- The font a style gives

// A descendant that keeps the font color it chooses for a cell under a style.
class TLockingGrid : public gridtest::TProbeGrid {
public:
  using TProbeGrid::TProbeGrid;
  TColor lockedColor = clNone;

protected:
  void PaintColumnCell(const TRect& rect, int dataCol, TQuilColumn* column, bool highlight, TSelections selections,
                       TColor& color, TFont* font, TPersistent*& image) override {
    TProbeGrid::PaintColumnCell(rect, dataCol, column, highlight, selections, color, font, image);
    if (lockedColor == clNone) return;
    font->SetColor(lockedColor);
    SetStyleLock(true);
  }
};

TEST_F(PaintRules, UnderACustomStyleTheFontTakesTheStylesColorsForItsElements) {
  Open<TLockingGrid>(5);
  WatchLeftOvers();
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  const TColor normal = grid->GetStyleFontColor(sfGridItemNormal, tgCellNormal);
  const TColor selected = grid->GetStyleFontColor(sfGridItemSelected, tgCellSelected);
  const TColor fixed = grid->GetStyleFontColor(sfGridItemFixedNormal, tgFixedCellNormal);
  ASSERT_NE(normal, selected);
  EXPECT_EQ(LeftOver(NameCol, EvenRow).font, normal);
  EXPECT_EQ(LeftOver(IdCol, CurrentRow).font, selected);
  grid->SetStyleElements({seClient, seBorder});
  EXPECT_EQ(LeftOver(NameCol, EvenRow).font, grid->Columns()->Items(NameCol - 1)->Font()->Color())
      << "without seFont the column's own";
  EXPECT_EQ(LeftOver(IdCol, CurrentRow).font, selected) << "a highlight still takes the style's";
  grid->SetFixedCols(1);
  EXPECT_EQ(LeftOver(IdCol, EvenRow).font, fixed) << "a frozen cell";
  static_cast<TLockingGrid*>(grid)->lockedColor = clRed;
  EXPECT_EQ(LeftOver(NameCol, EvenRow).font, clRed);
  EXPECT_EQ(LeftOver(IdCol, EvenRow).font, clRed);
  grid->SetEnabled(false);
  EXPECT_EQ(LeftOver(NameCol, EvenRow).font, clRed) << "the lock keeps even the disabled gray away";
  static_cast<TLockingGrid*>(grid)->lockedColor = clNone;
  EXPECT_EQ(LeftOver(NameCol, EvenRow).font, clGrayText);
  EXPECT_EQ(LeftOver(IdCol, CurrentRow).font, clGrayText);
}

TEST_F(PaintRules, UnderTheSystemStyleOnlyAHighlightOrSseFontChangesTheFont) {
  Open(5);
  WatchLeftOvers();
  const TColor own = grid->Columns()->Items(NameCol - 1)->Font()->Color();
  EXPECT_EQ(LeftOver(NameCol, EvenRow).font, own);
  EXPECT_EQ(LeftOver(IdCol, CurrentRow).font, grid->GetStyleFontColor(sfGridItemSelected, tgCellSelected));
  grid->SwitchSystemStyleElements({sseFont}, true);
  EXPECT_EQ(LeftOver(NameCol, EvenRow).font, grid->GetStyleFontColor(sfGridItemNormal, tgCellNormal));
}

// --- The search mark

class SearchMark : public PaintRules {
protected:
  void OpenSearched(const char* text) {
    Open(5);
    grid->SetSelectedIndex(NameCol - 1);
    grid->Search()->SetColor(clLime);
    grid->Search()->SetText(QString::fromLatin1(text));
    Paint();
  }
  // Where the first column of rect that shows color shows it: its first row and the one
  // past its last.
  static std::pair<int, int> RowsOf(const QImage& image, const TRect& rect, TColor color) {
    int first = -1, last = -1;
    for (int x = rect.Left; x < rect.Right && first < 0; ++x)
      for (int y = rect.Top; y < rect.Bottom; ++y)
        if (At(image, x, y) == color) {
          if (first < 0) first = y;
          last = y + 1;
        }
    return {first, last};
  }
};

// The mark covers the line of the match and a pixel around it; an even row space leaves
// the row a pixel taller, which the mark covers too.
TEST_F(SearchMark, CoversTheLineOfTheMatchAndAPixelAround) {
  OpenSearched("ame003");
  Classic();
  const int lineHeight = grid->Canvas()->TextHeight(QStringLiteral("Wg"));
  for (int space : {4, 3}) {
    grid->GridStyle()->SetDataRowSpace(space);
    Paint();
    const TRect cell = Cell(NameCol, EvenRow);
    const auto [top, bottom] = RowsOf(Grab(), cell, FlatFill(clLime));
    EXPECT_EQ(top, cell.Top + 1) << space;
    EXPECT_EQ(bottom - top, lineHeight + 2 + (space % 2 == 0 ? 1 : 0)) << space;
  }
}

TEST_F(SearchMark, ASelectedCellShowsNoMarkWhereAStyleDrawsTheSelection) {
  OpenSearched("ame00");
  const TRect selected = Cell(NameCol, CurrentRow), other = Cell(NameCol, EvenRow);
  const TColor lime = FlatFill(clLime);
  QImage image = Grab();
  EXPECT_TRUE(Shows(image, selected, lime)) << "the system style without sseSearch";
  grid->SwitchSystemStyleElements({sseSearch}, true);
  Repaint();
  image = Grab();
  Save(image, "search-system");
  EXPECT_FALSE(Shows(image, selected, lime));
  EXPECT_FALSE(Shows(image, other, lime));
  EXPECT_TRUE(Shows(image, other, SchemeColor(srHighlight))) << "the style's selected cell marks";
  // Under a custom style the selected row is drawn in the row's color, a mark would be
  // the selected cell's.
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  Classic();
  grid->SwitchOptions({dgRowSelect}, true);
  Paint();
  image = Grab();
  Save(image, "search-custom");
  EXPECT_FALSE(Shows(image, selected, SchemeColor(srHighlight)));
  EXPECT_TRUE(Shows(image, other, SchemeColor(srHighlight)));
}

// --- Lines left to a gradient

TEST_F(PaintRules, AGradientFillSpreadsOverTheLinesItKeepsFromBeingDrawn) {
  Open(5);
  grid->SetDrawingStyle(gdsGradient);
  grid->Gradient()->SetCells({gcSelectedRow});
  Paint();
  const TRect cell = Cell(CityCol, CurrentRow);
  const int x = (cell.Left + cell.Right) / 2, y = (cell.Top + cell.Bottom) / 2;
  QImage image = Grab();
  const TColor rowLine = At(image, x, cell.Bottom), colLine = At(image, cell.Right, y);
  EXPECT_EQ(rowLine, At(image, x, Cell(CityCol, EvenRow).Bottom)) << "the grid's lines";
  grid->SetDataRowLineColor(clNone);
  grid->SetDataColLineColor(clNone);
  Paint();
  image = Grab();
  Save(image, "gradient-over-lines");
  EXPECT_NE(At(image, x, cell.Bottom), rowLine);
  EXPECT_TRUE(Near(At(image, x, cell.Bottom), At(image, x, cell.Bottom - 1))) << "the fill's last row";
  EXPECT_NE(At(image, cell.Right, y), colLine);
  EXPECT_EQ(At(image, cell.Right, y), At(image, cell.Right - 1, y));
  const TRect plain = Cell(CityCol, EvenRow);
  EXPECT_EQ(At(image, x, plain.Bottom), Background(image, plain)) << "without a fill the line takes the brush";
}

// --- The focus frame

TEST_F(PaintRules, TheFocusFrameShowsOnlyWhileTheGridIsTheFormsActiveControl) {
  Open(5);
  Classic();
  grid->SwitchOptions({dgAlwaysShowSelection}, true);
  grid->SetSelectedIndex(CityCol - 1);
  auto* button = new TButton(form);
  button->SetParent(form);
  button->SetBounds(10, 255, 80, 20);
  auto dotsOnTop = [this] {
    const QImage image = Grab();
    const TRect cell = Cell(CityCol, CurrentRow);
    const TColor fill = Background(image, cell);
    int dots = 0;
    for (int x = cell.Left; x < cell.Right; ++x) dots += At(image, x, cell.Top) != fill;
    return dots;
  };
  form->SetActiveControl(button);
  Settle();
  ASSERT_EQ(form->ActiveControl(), button);
  Repaint();
  EXPECT_EQ(dotsOnTop(), 0);
  form->SetActiveControl(grid);
  Settle();
  Repaint();
  EXPECT_GT(dotsOnTop(), 10);
}

// --- Pictures of a graphic field

class GraphicField : public PaintRules {
protected:
  // A grid over two records whose picture is a yellow square, light enough not to pass
  // for text.
  void SetUp() override {
    Open(1);
    pictures.FieldDefs()->Add("Picture", ftGraphic);
    pictures.CreateDataSet();
    TBitmap square(8, 8);
    square.Canvas()->Brush()->SetColor(clYellow);
    square.Canvas()->FillRect(Rect(0, 0, 8, 8));
    for (int record = 0; record < 2; ++record) {
      pictures.Append();
      static_cast<TBlobField*>(pictures.FieldByName("Picture"))->SetAsBytes(square.SaveToData());
      pictures.Post();
    }
    pictures.First();
    source->SetDataSet(&pictures);
    Settle();
    Classic();
  }
  void TearDown() override {
    source->SetDataSet(nullptr);
    PaintRules::TearDown();
  }
  dbtest::TWindowCheckedDataSet pictures{nullptr};
};

TEST_F(GraphicField, ShowBlobDrawsThePictureInsteadOfTheText) {
  const TRect cell = Cell(IdCol, CurrentRow + 1);
  QImage image = Grab();
  Save(image, "graphic-field");
  EXPECT_EQ(At(image, (cell.Left + cell.Right) / 2, (cell.Top + cell.Bottom) / 2), clYellow);
  EXPECT_FALSE(HasInk(image, cell));
  grid->Columns()->Items(0)->SetShowBlob(false);
  Paint();
  image = Grab();
  EXPECT_FALSE(Shows(image, cell, clYellow));
  EXPECT_TRUE(HasInk(image, cell)) << "the field's text";
}

// --- A column that reads left to right in a mirrored grid

// Its cells draw in the screen's own direction, but their lines, fills and focus frame
// keep to the grid's: the line after such a cell is the one on its left.
class UnmirroredColumn : public PaintRules {
protected:
  void SetUp() override {
    Open(5);
    Classic();
    for (int rawCol : {IdCol, NameCol, CityCol, AmountCol}) grid->Columns()->Items(rawCol - 1)->SetWidth(80);
    grid->SetBiDiMode(bdRightToLeft);
    grid->Columns()->Items(NameCol - 1)->SetSuppressRTL(true);
    grid->SetSelectedIndex(NameCol - 1);
    Paint();
  }
  int MiddleY(int rawRow) const { return (Cell(NameCol, rawRow).Top + Cell(NameCol, rawRow).Bottom) / 2; }
  // The line after the Name column, in reading order.
  int LineAfterName() const { return Cell(NameCol, CurrentRow).Left - 1; }
};

TEST_F(UnmirroredColumn, DrawsItsLinesWhereTheGridHasThem) {
  grid->SetDataColLineColor(clRed);
  grid->SetDataRowLineColor(clBlue);
  Paint();
  const QImage image = Grab();
  EXPECT_EQ(At(image, LineAfterName(), MiddleY(EvenRow)), clRed);
  grid->SetDataColLineColor(clNone);
  Paint();
  EXPECT_EQ(At(Grab(), LineAfterName(), Cell(NameCol, EvenRow).Bottom), clBlue)
      << "a row line runs on over the place of the column line after it";
}

TEST_F(UnmirroredColumn, FramesAndFillsItsOwnCell) {
  grid->SetDrawingStyle(gdsGradient);
  grid->Gradient()->SetCells({gcSelectedCell});
  grid->SetDataColLineColor(clNone);
  Paint();
  const TRect cell = Cell(NameCol, CurrentRow);
  QImage image = Grab();
  Save(image, "unmirrored-column");
  EXPECT_NE(At(image, LineAfterName(), MiddleY(CurrentRow)), At(image, LineAfterName(), MiddleY(EvenRow)))
      << "the fill spreads over the line it left out";
  EXPECT_TRUE(Near(At(image, LineAfterName(), MiddleY(CurrentRow)), At(image, cell.Left, MiddleY(CurrentRow))));
  const QImage framed = image;
  grid->SetFocusRect(frNone);
  Paint();
  image = Grab();
  int dots = 0;
  for (int x = cell.Left - 1; x < cell.Right; ++x) dots += framed.pixel(x, cell.Top) != image.pixel(x, cell.Top);
  EXPECT_GT(dots, 10) << "the focus frame";
}

}  // namespace
