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
using namespace gridtest::peoplecols;

namespace {

class GridPaint : public GridFixture {
protected:
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
    if (!column) return;  // the indicator's row marks ask too
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

// --- Lines along the open edge of the data

TEST_F(GridPaint, WhereTheRowsDoNotFillTheGridTheOpenEdgesTakeTheFixedLineColor) {
  Open(3);
  Classic();
  grid->SetFixedStyle(fsFine);
  Paint();
  const TColor fixedLine = ColorToRGB(grid->GetFixedLineColor());
  QImage image = Grab();
  Save(image, "open-edge");
  const TRect lastRow = Cell(NameCol, 3);
  EXPECT_EQ(At(image, lastRow.Left + 5, lastRow.Bottom), fixedLine);
  EXPECT_NE(At(image, lastRow.Left + 5, Cell(NameCol, 2).Bottom), fixedLine) << "a row above keeps the grid's line";
  const TRect lastCol = Cell(4, 2);
  EXPECT_EQ(At(image, lastCol.Right, lastCol.Top + 5), fixedLine);
  EXPECT_NE(At(image, Cell(CityCol, 2).Right, lastCol.Top + 5), fixedLine);
  grid->SetDataRowLineColor(clRed);
  Paint();
  EXPECT_EQ(At(Grab(), lastRow.Left + 5, lastRow.Bottom), clRed) << "a color of its own holds";
}

TEST_F(GridPaint, WithoutColumnLinesARowLineRunsOnIntoTheNextCell) {
  Open(10);
  Classic();
  grid->SetDataRowLineColor(clRed);
  grid->SetDataColLineColor(clBlue);
  Paint();
  const TRect cell = Cell(NameCol, 3);
  EXPECT_EQ(At(Grab(), cell.Right, cell.Bottom), clBlue);
  grid->SetDataColLineColor(clNone);
  Paint();
  EXPECT_EQ(At(Grab(), cell.Right, cell.Bottom), clRed);
}

// --- Gradients chosen cell by cell

TEST_F(GridPaint, TheGradientShadesOnlyTheKindsOfCellItIsGivenFor) {
  Open(10);
  grid->SetDrawingStyle(gdsGradient);
  grid->Gradient()->SetActive(true);
  grid->Gradient()->SetCells({gcSelectedCell});
  Paint();
  const TColor cellColor = ColorToRGB(grid->DefaultSelectCellColor());
  const TColor rowColor = ColorToRGB(grid->DefaultSelectRowColor());
  const TRect current = Cell(IdCol, 1), inRow = Cell(CityCol, 1);
  QImage image = Grab();
  Save(image, "gradient-cells");
  EXPECT_NE(At(image, current.Left + 3, current.Bottom - 3), cellColor) << "shaded";
  EXPECT_EQ(Background(image, inRow), rowColor);
  // The current cell is in the current row, which the gradient must leave out too.
  grid->Gradient()->SetCells({gcStripedRows});
  Paint();
  image = Grab();
  EXPECT_EQ(At(image, current.Left + 3, current.Top + 3), cellColor);
  EXPECT_EQ(At(image, current.Left + 3, current.Bottom - 3), cellColor);
}

// --- Focus frames of the classic look

struct FrameCase {
  const char* name;
  TFocusRect style;
  TColor topLeft;
  TColor bottomRight;
};

void PrintTo(const FrameCase& frame, std::ostream* out) { *out << frame.name; }

class FocusFrame : public GridPaint, public ::testing::WithParamInterface<FrameCase> {};

TEST_P(FocusFrame, EdgesTheCurrentCellInItsColors) {
  const FrameCase& frame = GetParam();
  Open(10);
  Classic();
  grid->SetSelectedIndex(CityCol - 1);
  grid->SetFocusRect(frame.style);
  Paint();
  const QImage image = Grab();
  const TRect cell = Cell(CityCol, 1);
  const int middleX = (cell.Left + cell.Right) / 2, middleY = (cell.Top + cell.Bottom) / 2;
  EXPECT_EQ(At(image, middleX, cell.Top), ColorToRGB(frame.topLeft));
  EXPECT_EQ(At(image, cell.Left, middleY), ColorToRGB(frame.topLeft));
  EXPECT_EQ(At(image, middleX, cell.Bottom - 1), ColorToRGB(frame.bottomRight));
  EXPECT_EQ(At(image, cell.Right - 1, middleY), ColorToRGB(frame.bottomRight));
}

INSTANTIATE_TEST_SUITE_P(GridPaint, FocusFrame,
                         ::testing::Values(FrameCase{"Gray", frGray, cl3DDkShadow, cl3DDkShadow},
                                           FrameCase{"Mild", frMild, clBtnShadow, clBtnShadow}),
                         [](const ::testing::TestParamInfo<FrameCase>& info) { return std::string(info.param.name); });

// --- Images beside and under the text

class GridImage : public GridPaint {
protected:
  // One 8 x 8 picture of color, shown in the Name column.
  TQuilColumn* ShowImage(TColor color) {
    picture.Canvas()->Brush()->SetColor(color);
    picture.Canvas()->FillRect(Rect(0, 0, 8, 8));
    images.Add(&picture, nullptr);
    TQuilColumn* name = grid->Columns()->Items(NameCol - 1);
    name->SetImages(&images);
    grid->OnCalcImageIndex = [](TObject*, TQuilColumn*, int& index) { index = 0; };
    return name;
  }
  void TearDown() override {
    if (grid) grid->Columns()->Items(NameCol - 1)->SetImages(nullptr);
    GridPaint::TearDown();
  }
  TImageList images{8, 8};
  TBitmap picture{8, 8};
};

TEST_F(GridImage, AnImageMarginIsFilledAndTheTextFollowsIt) {
  Open(5);
  Classic();
  TQuilColumn* name = ShowImage(clAqua);  // light, so that it is not taken for ink
  name->SetColor(clYellow);
  name->SetImageMargin(20);
  Paint();
  const QImage image = Grab();
  Save(image, "image-margin");
  const TRect cell = Cell(NameCol, 3);
  const int middleY = (cell.Top + cell.Bottom) / 2;
  EXPECT_EQ(At(image, cell.Left + 10, middleY), clAqua);
  EXPECT_EQ(At(image, cell.Left + 20, middleY), clYellow) << "between the image and the text";
  EXPECT_FALSE(HasInk(image, Rect(cell.Left, cell.Top, cell.Left + 21, cell.Bottom)));
  EXPECT_TRUE(HasInk(image, Rect(cell.Left + 21, cell.Top, cell.Right, cell.Bottom)));
}

TEST_F(GridImage, AWallpaperShowsTheTextOverTheImage) {
  Open(5);
  Classic();
  TQuilColumn* name = ShowImage(clYellow);
  name->SetImageDraw(idTileCell);
  name->SetWallpaper(true);
  Paint();
  const QImage image = Grab();
  Save(image, "wallpaper");
  const TRect cell = Cell(NameCol, 3);
  EXPECT_EQ(Background(image, cell), clYellow);
  EXPECT_TRUE(HasInk(image, cell));
  name->SetWallpaper(false);
  Paint();
  EXPECT_FALSE(HasInk(Grab(), cell));
}

// --- The default drawing called by a handler

TEST_F(GridPaint, DefaultDrawDataCellWritesTheFieldsTextAlignedByTheField) {
  Open(5);
  Classic();
  grid->SetDefaultDrawing(false);
  bool draw = false;
  grid->OnDrawDataCell = [&](TObject*, const TRect& rect, TField* field, TGridDrawState state) {
    grid->Canvas()->Brush()->SetColor(clWindow);
    grid->Canvas()->FillRect(rect);
    if (draw) grid->DefaultDrawDataCell(rect, field, state);
  };
  grid->Invalidate();
  Paint();
  const TRect cell = Cell(IdCol, 3);
  EXPECT_FALSE(HasInk(Grab(), cell));
  draw = true;
  grid->Invalidate();
  Paint();
  const QImage image = Grab();
  TRect leftHalf = cell, rightHalf = cell;
  leftHalf.Right = rightHalf.Left = cell.Left + cell.Width() / 2;
  EXPECT_TRUE(HasInk(image, rightHalf)) << "the number is right aligned";
  EXPECT_FALSE(HasInk(image, leftHalf));
  EXPECT_TRUE(HasInk(image, Cell(NameCol, 3)));
}

// --- DrawCell's frame

TEST_F(GridPaint, WhileLoadingEveryCellIsOnlyFilledWithTheGridsColor) {
  Open(5);
  Classic();
  grid->SetColor(clYellow);
  grid->Loading();
  grid->Invalidate();
  const QImage image = Grab();
  static_cast<TComponent*>(grid)->Loaded();  // protected in the grid, public in a component
  Save(image, "loading");
  EXPECT_EQ(Background(image, Cell(NameCol, 3)), clYellow);
  EXPECT_EQ(Background(image, Cell(NameCol, 0)), clYellow) << "the titles too";
  EXPECT_FALSE(HasInk(image, Cell(NameCol, 3)));
  EXPECT_FALSE(HasInk(image, Cell(NameCol, 0)));
}

TEST_F(GridPaint, ABlankRowTallerThanADataRowTakesNoStripe) {
  Open(3);
  Classic();
  grid->SwitchOptionsEx({dgBlankRow}, true);
  grid->SetStripeColor(clYellow);
  Paint();
  ASSERT_GT(grid->GetBlankHeight(), grid->DefaultRowHeight());
  const QImage image = Grab();
  Save(image, "tall-blank");
  EXPECT_EQ(Background(image, Cell(CityCol, 2)), clYellow);
  EXPECT_EQ(Background(image, Cell(CityCol, 4)), ColorToRGB(clWindow)) << "the blank row is the fourth, an odd one";
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
