// The painted grid, offscreen: text in its cells, the colors of stripes and selections
// in the order of their rules, lines, the search mark, the focus frame, images, wrap,
// and the cell events.
#include <QDir>
#include <QImage>

#include "GridTestKit.h"
#include "framework/db/Field.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/ImageList.h"
#include "grid/QuilDBGridPaint_p.h"

using namespace quil;
using gridtest::GridFixture;

namespace {

// Raw columns of the people grid: the indicator, ID, Name, City, Amount.
constexpr int IdCol = 1;
constexpr int NameCol = 2;
constexpr int CityCol = 3;

class GridPaint : public GridFixture {
protected:
  QImage Grab() { return grid->Handle()->grab().toImage(); }
  // The classic look: no theme and no gradient, so that each fill is a color as set.
  void Classic() {
    grid->SetDrawingStyle(gdsClassic);
    Paint();
  }
  TRect Cell(int rawCol, int rawRow) const { return InClient(grid->CellRect(rawCol, rawRow)); }
  TRect InClient(TRect rect) const {
    const int border = (grid->Width() - grid->ClientWidth()) / 2;
    rect.Offset(border, border);
    return rect;
  }
  static TColor At(const QImage& image, int x, int y) {
    const QRgb pixel = image.pixel(x, y);
    return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
  }
  // A pixel near the bottom right corner of a cell, where its short text never reaches.
  static TColor Background(const QImage& image, const TRect& cell) { return At(image, cell.Right - 3, cell.Bottom - 3); }
  static int DarkestGray(const QImage& image, const TRect& rect) {
    int darkest = 255;
    for (int y = rect.Top; y < rect.Bottom; ++y)
      for (int x = rect.Left; x < rect.Right; ++x) darkest = std::min(darkest, qGray(image.pixel(x, y)));
    return darkest;
  }
  // Whether a rectangle of the grab holds pixels darker than the background: text.
  static bool HasInk(const QImage& image, const TRect& rect) { return DarkestGray(image, rect) < 100; }
  static void Save(const QImage& image, const char* name) {
    ASSERT_TRUE(image.save(QDir::tempPath() + QStringLiteral("/quil-grid-%1.png").arg(QLatin1String(name))));
  }
};

TEST_F(GridPaint, TitlesAndCellsShowTheirTextAndEmptyPlacesStayBlank) {
  Open(30);
  grid->MoveBy(3);
  const QImage image = Grab();
  Save(image, "spine");
  EXPECT_TRUE(HasInk(image, Cell(IdCol, 0))) << "title of ID";
  EXPECT_TRUE(HasInk(image, Cell(NameCol, 1))) << "a name";
  // City is empty for every fourth record: record 4 is on row 4.
  EXPECT_FALSE(HasInk(image, Cell(CityCol, 4)));
  EXPECT_TRUE(HasInk(image, Cell(CityCol, 3)));
}

TEST_F(GridPaint, RightAlignedNumbersEndAtTheCellsRightEdge) {
  Open(5);
  const QImage image = Grab();
  TRect cell = Cell(IdCol, 2);
  TRect leftHalf = cell, rightHalf = cell;
  leftHalf.Right = rightHalf.Left = cell.Left + cell.Width() / 2;
  EXPECT_TRUE(HasInk(image, rightHalf));
  EXPECT_FALSE(HasInk(image, leftHalf));
}

TEST_F(GridPaint, StripesColorOddScreenRowsAndStayThereWhenTheDataScrolls) {
  Open(30);
  Classic();
  grid->SetStripeColor(clYellow);
  Paint();
  QImage image = Grab();
  Save(image, "stripes");
  EXPECT_EQ(Background(image, Cell(CityCol, 3)), ColorToRGB(clWindow));
  EXPECT_EQ(Background(image, Cell(CityCol, 4)), clYellow);
  grid->MoveBy(15);
  Paint();
  ASSERT_GT(grid->Row(), 5) << "the current row is elsewhere";
  image = Grab();
  EXPECT_EQ(Background(image, Cell(CityCol, 3)), ColorToRGB(clWindow));
  EXPECT_EQ(Background(image, Cell(CityCol, 4)), clYellow);
}

TEST_F(GridPaint, WithStripesTheColumnsColorGivesWayAndSilverTurnsLighter) {
  Open(10);
  Classic();
  grid->Columns()->Items(CityCol - 1)->SetColor(clSilver);
  Paint();
  EXPECT_EQ(Background(Grab(), Cell(CityCol, 3)), clSilver) << "without stripes the column's color";
  grid->SetStripeColor(clSilver);
  Paint();
  const QImage image = Grab();
  EXPECT_EQ(Background(image, Cell(CityCol, 3)), ColorToRGB(clWindow));
  EXPECT_EQ(Background(image, Cell(CityCol, 4)), RGB(232, 232, 232));
}

TEST_F(GridPaint, TheCurrentCellAndItsRowTakeTheirSelectionColors) {
  Open(10);
  Classic();
  ASSERT_TRUE(grid->Focused());
  const QImage image = Grab();
  Save(image, "selection");
  EXPECT_EQ(At(image, Cell(IdCol, 1).Left + 3, Cell(IdCol, 1).Bottom - 3), ColorToRGB(grid->DefaultSelectCellColor()));
  EXPECT_EQ(Background(image, Cell(CityCol, 1)), ColorToRGB(grid->DefaultSelectRowColor()));
  EXPECT_FALSE(HasInk(image, Cell(IdCol, 1))) << "highlighted text";
  EXPECT_TRUE(HasInk(image, Cell(CityCol, 1)));
}

TEST_F(GridPaint, WithoutASelectCellColorTheCurrentCellKeepsTheRowAndTheColumnsText) {
  Open(10);
  Classic();
  grid->SetSelectCellColor(clNone);
  Paint();
  const QImage image = Grab();
  EXPECT_EQ(At(image, Cell(IdCol, 1).Left + 3, Cell(IdCol, 1).Bottom - 3), ColorToRGB(grid->DefaultSelectRowColor()));
  EXPECT_TRUE(HasInk(image, Cell(IdCol, 1)));
}

TEST_F(GridPaint, ADisabledGridWritesGrayTextAlsoUnderTheHighlight) {
  Open(10);
  Classic();
  grid->SwitchOptions({dgAlwaysShowSelection}, true);
  grid->SetSelectCellColor(clNone);
  grid->SetEnabled(false);
  Paint();
  const QImage image = Grab();
  const int gray = qGray(qRgb(GetRValue(ColorToRGB(clGrayText)), GetGValue(ColorToRGB(clGrayText)),
                              GetBValue(ColorToRGB(clGrayText))));
  EXPECT_NEAR(DarkestGray(image, Cell(NameCol, 3)), gray, 12);
  // The current cell takes the column's font back, and stays as gray as its row.
  TRect current = Cell(IdCol, 1);
  current.Inflate(-2, -2);  // inside the focus frame
  TRect besideCurrent = Cell(NameCol, 1);
  besideCurrent.Inflate(-2, -2);
  EXPECT_NEAR(DarkestGray(image, current), DarkestGray(image, besideCurrent), 12);
}

TEST_F(GridPaint, ARowLineOfItsOwnColorLiesUnderTheCell) {
  Open(10);
  Classic();
  grid->SetDataRowLineColor(clRed);
  grid->SetDataColLineColor(clBlue);
  Paint();
  const QImage image = Grab();
  const TRect cell = Cell(NameCol, 3);
  EXPECT_EQ(At(image, cell.Left + 5, cell.Bottom), clRed);
  EXPECT_EQ(At(image, cell.Right, cell.Top + 5), clBlue);
}

TEST_F(GridPaint, TheFocusFrameDotsTheCurrentCell) {
  Open(10);
  Classic();
  grid->SetSelectedIndex(CityCol - 1);
  Paint();
  auto dotsOnTop = [this](const QImage& image) {
    const TRect cell = Cell(CityCol, 1);
    const TColor fill = Background(image, cell);
    int dots = 0;
    for (int x = cell.Left; x < cell.Right; ++x) dots += At(image, x, cell.Top) != fill;
    return dots;
  };
  const QImage image = Grab();
  Save(image, "focus");
  EXPECT_GT(dotsOnTop(image), 10);
  grid->SetFocusRect(frNone);
  Paint();
  EXPECT_EQ(dotsOnTop(Grab()), 0);
}

TEST_F(GridPaint, UnderTheSystemLookTheFocusFrameStandsOnePixelIn) {
  Open(10);
  grid->SetSelectedIndex(CityCol - 1);
  Paint();
  const QImage image = Grab();
  const TRect cell = Cell(CityCol, 1);
  const TColor fill = Background(image, cell);
  int inner = 0, outer = 0;
  for (int x = cell.Left + 1; x < cell.Right - 1; ++x) {
    inner += At(image, x, cell.Top + 1) != fill;
    outer += At(image, x, cell.Top) != fill;
  }
  EXPECT_GT(inner, 10);
  EXPECT_EQ(outer, 0);
}

TEST_F(GridPaint, ASearchTextIsMarkedInTheCellsThatHoldIt) {
  Open(10);
  Classic();
  grid->Search()->SetText(QStringLiteral("ame00"));
  Paint();
  // The default search color is an orange.
  auto marked = [this](const QImage& image, const TRect& rect) {
    for (int y = rect.Top; y < rect.Bottom; ++y)
      for (int x = rect.Left; x < rect.Right; ++x) {
        const QRgb pixel = image.pixel(x, y);
        if (qRed(pixel) > 200 && qGreen(pixel) > 120 && qGreen(pixel) < 230 && qBlue(pixel) < 140) return true;
      }
    return false;
  };
  QImage image = Grab();
  Save(image, "search");
  EXPECT_TRUE(marked(image, Cell(NameCol, 3)));
  EXPECT_FALSE(marked(image, Cell(CityCol, 3)));
  grid->Search()->SetOptions(grid->Search()->Options() + soCurrentCol);
  grid->Invalidate();
  Paint();
  EXPECT_FALSE(marked(Grab(), Cell(NameCol, 3))) << "only the selected column is searched";
  grid->SetSelectedIndex(NameCol - 1);
  grid->Search()->SetText(QStringLiteral("ame00"));  // leaving a column clears the search
  grid->Invalidate();
  Paint();
  EXPECT_TRUE(marked(Grab(), Cell(NameCol, 3)));
  grid->Search()->SetColor(clNone);
  Paint();
  EXPECT_FALSE(marked(Grab(), Cell(NameCol, 3)));
}

TEST_F(GridPaint, ATallRowWrapsItsTextOntoTheSecondLine) {
  Open(10);
  Classic();
  TQuilColumn* name = grid->Columns()->Items(NameCol - 1);
  grid->OnColGetText = [name](TQuilColumn* column, QString& text, TTextKind) {
    if (column == name) text = QStringLiteral("alpha beta gamma delta");
  };
  TBitmap measure(1, 1);
  measure.Canvas()->SetFont(grid->Font());
  name->SetWidth(measure.Canvas()->TextWidth(QStringLiteral("alpha beta")) + 8);
  grid->SetLinesCount(2);
  Paint();
  const QImage image = Grab();
  Save(image, "wrap");
  const TRect cell = Cell(NameCol, 3);
  const int middle = cell.Top + cell.Height() / 2;
  EXPECT_TRUE(HasInk(image, Rect(cell.Left, cell.Top, cell.Right, middle)));
  EXPECT_TRUE(HasInk(image, Rect(cell.Left, middle, cell.Right, cell.Bottom)));
}

TEST_F(GridPaint, AnImageTakesTheCellAndTheEventMayChooseIt) {
  Open(5);
  Classic();
  TImageList images(8, 8);
  TBitmap red(8, 8);
  red.Canvas()->Brush()->SetColor(clRed);
  red.Canvas()->FillRect(Rect(0, 0, 8, 8));
  images.Add(&red, nullptr);
  TQuilColumn* name = grid->Columns()->Items(NameCol - 1);
  name->SetImages(&images);
  int asked = 0;
  grid->OnCalcImageIndex = [&](TObject*, TQuilColumn* column, int& index) {
    EXPECT_EQ(column, name);
    ++asked;
    index = 0;
  };
  Paint();
  const QImage image = Grab();
  const TRect cell = Cell(NameCol, 3);
  EXPECT_GT(asked, 0);
  EXPECT_EQ(At(image, (cell.Left + cell.Right) / 2, (cell.Top + cell.Bottom) / 2), clRed);
  const TRect beside = Rect(cell.Left, cell.Top, (cell.Left + cell.Right) / 2 - 6, cell.Bottom);
  EXPECT_FALSE(HasInk(image, beside)) << "the image stands in for the text";
  name->SetImages(nullptr);
}

// --- The cell events

TEST_F(GridPaint, DefaultColumnsHearDrawDataCellBeforeDrawColumnCell) {
  Open(5);
  QStringList heard;
  grid->OnDrawDataCell = [&](TObject*, const TRect&, TField* field, TGridDrawState) {
    if (field->FieldName() == "Name") heard << "data";
  };
  grid->OnDrawColumnCell = [&](TObject*, const TRect&, int dataCol, TQuilColumn*, TGridDrawState) {
    if (dataCol == NameCol - 1) heard << "column";
  };
  grid->InvalidateCell(NameCol, 2);
  Paint();
  EXPECT_EQ(heard, QStringList({"data", "column"}));
  grid->Columns()->SetState(csCustomized);
  heard.clear();
  grid->InvalidateCell(NameCol, 2);
  Paint();
  EXPECT_FALSE(heard.contains("data"));
  EXPECT_TRUE(heard.contains("column"));
}

TEST_F(GridPaint, PaintColumnCellChangesTheBrushAndSeesTheSelections) {
  Open(5);
  Classic();
  TSelections currentRow;
  grid->OnPaintColumnCell = [&](TObject*, const TRect&, int dataCol, TQuilColumn*, bool, TSelections selections,
                                TColor& color, TFont*, TPersistent*&) {
    if (dataCol != CityCol - 1) return;
    if (selections.Contains(slRowSelected)) currentRow = selections;
    color = clLime;
  };
  grid->Invalidate();
  Paint();
  const QImage image = Grab();
  EXPECT_EQ(Background(image, Cell(CityCol, 3)), clLime);
  EXPECT_EQ(Background(image, Cell(CityCol, 1)), clLime);
  EXPECT_EQ(currentRow, (TSelections{slRowSelected}));
  EXPECT_EQ(grid->PaintedCol(), -1) << "outside a paint";
}

TEST_F(GridPaint, AHandlerDrawsTheDefaultAgainWithoutDefaultDrawing) {
  Open(5);
  Classic();
  grid->SetDefaultDrawing(false);
  int rowOffsets = 0;
  grid->OnDrawColumnCell = [&](TObject*, const TRect& rect, int dataCol, TQuilColumn* column, TGridDrawState state) {
    rowOffsets += grid->PaintedRowOffset() != 0;
    grid->Canvas()->Brush()->SetColor(clWindow);
    grid->DefaultDrawColumnCell(rect, dataCol, column, state);
  };
  grid->Invalidate();
  Paint();
  const QImage image = Grab();
  EXPECT_TRUE(HasInk(image, Cell(NameCol, 3)));
  EXPECT_GT(rowOffsets, 0) << "rows below the current one are painted from their own record";
}

TEST_F(GridPaint, HighlightNeedsTheSelectionInSightAndNoUpdateUnderWay) {
  Open(5);
  ASSERT_TRUE(grid->Focused());
  EXPECT_TRUE(grid->HighlightCell(0, 0, QString(), {gdSelected}));
  EXPECT_FALSE(grid->HighlightCell(0, 0, QString(), {}));
  grid->BeginUpdate();
  EXPECT_FALSE(grid->HighlightCell(0, 0, QString(), {gdSelected}));
  grid->SwitchOptions({dgRowSelect}, true);
  EXPECT_TRUE(grid->HighlightCell(0, 0, QString(), {gdSelected}));
  grid->EndUpdate();
}

// --- The selection rules, each overriding the one before

struct BrushCase {
  const char* name;
  bool highlight;
  TSelections selections;
  bool fixed;
  bool activeRow;
  TColor brush;
  bool columnFont;
};

void PrintTo(const BrushCase& rule, std::ostream* out) { *out << rule.name; }

class DataCellBrush : public ::testing::TestWithParam<BrushCase> {};

constexpr TColor Plain = clWhite, Selection = clRed, SelectRow = clGreen, SelectCell = clBlue;

TEST_P(DataCellBrush, ChoosesByTheRulesInOrder) {
  const BrushCase& rule = GetParam();
  const TSelectionColors colors{Selection, SelectRow, SelectCell};
  const TDataCellBrush chosen =
      ChooseDataCellBrush(Plain, rule.highlight, rule.selections, rule.fixed, rule.activeRow, colors);
  EXPECT_EQ(chosen.brush, rule.brush);
  EXPECT_EQ(chosen.columnFontColor, rule.columnFont);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DataCellBrush,
    ::testing::Values(
        BrushCase{"PlainCell", false, {}, false, false, Plain, false},
        BrushCase{"MultiSelectedNeedsHighlight", false, {slMultiSelected}, false, false, Plain, false},
        BrushCase{"MultiSelected", true, {slMultiSelected}, false, false, Selection, false},
        BrushCase{"CurrentRowOverMultiSelected", true, {slMultiSelected, slRowSelected}, false, true, SelectRow, false},
        BrushCase{"CurrentRowEvenUnhighlighted", false, {slRowSelected}, false, true, SelectRow, false},
        BrushCase{"AFrozenCellKeepsItsRowBrush", false, {slRowSelected}, true, true, Plain, false},
        BrushCase{"CurrentCellOverAll", true, {slCellSelected, slRowSelected, slMultiSelected}, false, true,
                  SelectCell, false}),
    [](const ::testing::TestParamInfo<BrushCase>& info) { return std::string(info.param.name); });

TEST(DataCellBrushOff, AColorOffLeavesTheRuleOutAndACurrentCellWithoutOneTakesTheColumnsFont) {
  const TSelectionColors off{clNone, clNone, clNone};
  const TDataCellBrush chosen = ChooseDataCellBrush(Plain, true, {slCellSelected, slRowSelected}, false, true, off);
  EXPECT_EQ(chosen.brush, Plain);
  EXPECT_TRUE(chosen.columnFontColor);
  const TDataCellBrush multi =
      ChooseDataCellBrush(Plain, true, {slCellSelected, slMultiSelected}, false, false, {Selection, clNone, clNone});
  EXPECT_EQ(multi.brush, Selection);
  EXPECT_FALSE(multi.columnFontColor) << "a multi-selected cell keeps the selection's text";
}

}  // namespace
