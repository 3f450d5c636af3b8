// The box glyphs of check box and expand box columns: the state a record's value or
// expansion gives, the image index of each kind and size, the themed element or the
// built-in image with its frame, and the boxes as a grid paints them at 100% and 200%.
#include <map>

#include "../framework/graphics/PixelProbe.h"
#include "ColumnTestKit.h"
#include "GlyphTestKit.h"
#include "framework/db/Field.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/ImageList.h"
#include "framework/rtl/TypInfo.h"

using namespace quil;
using gridtest::TPixelsPerInch;

namespace {

// Raw columns and rows of the tasks grid: the indicator, then one column per field;
// the title row, then one row per record.
constexpr int DoneCol = 1;
constexpr int NameCol = 4;

// Done, Count, Answer, Name: a true, a false and an empty record, then one whose values
// are neither the true nor the false text of the number and text columns.
void FillTasks(TClientDataSet& tasks) {
  tasks.FieldDefs()->Add("Done", ftBoolean);
  tasks.FieldDefs()->Add("Count", ftInteger);
  tasks.FieldDefs()->Add("Answer", ftString, 10);
  tasks.FieldDefs()->Add("Name", ftString, 20);
  tasks.CreateDataSet();
  tasks.AppendRecord({true, 1, "y", "Alpha"});
  tasks.AppendRecord({false, 0, "N", "Beta"});
  tasks.AppendRecord({Null(), Null(), "maybe", "Gamma"});
  tasks.AppendRecord({true, 7, Null(), "Delta"});
  tasks.First();
}

class BoxColumns : public gridtest::ColumnFixture {
protected:
  // The tasks grid, customized so that layouts keep the columns' settings; plain boxes
  // come from a grid that does not theme its cells.
  void OpenTasks(bool themed) {
    OpenWith(FillTasks);
    grid->Columns()->SetState(csCustomized);
    if (!themed) grid->SetFixedTheme(ftNone);
    ASSERT_EQ(grid->IsGridThemed(false), themed);
    Settle();
  }
  void GoTo(int record) { dataSet->SetRecNo(record); }
  // Ends the form of one round of a test that opens another.
  void Close() {
    delete form;
    form = nullptr;
  }
  // Makes list one of count 4 x 4 images.
  static void FillImages(TImageList& list, int count) {
    list.SetSize(4, 4);
    list.Clear();
    TBitmap image(4, 4);
    for (int index = 0; index < count; ++index) list.AddMasked(&image, clOlive);
  }
};

// --- The state of a record's value

struct ValueCase {
  const char* name;
  const char* field;
  const char* values;  // CheckBoxValues; none keeps the default texts
  int record;
  int state;  // 0 unchecked, 1 checked, 2 neither
};

class BoxValues : public BoxColumns, public ::testing::WithParamInterface<ValueCase> {};

// Plain boxes have an image of every kind: the state picks one of three in the kind's
// family. A themed box knows no kinds and shows the state alone.
TEST_P(BoxValues, PickTheStateInTheKindsFamily) {
  const ValueCase c = GetParam();
  for (bool themed : {false, true}) {
    OpenTasks(themed);
    TQuilColumn* column = ColumnOf(c.field);
    column->SetCheckBox(true);
    if (c.values) column->SetCheckBoxValues(c.values);
    GoTo(c.record);
    for (TCheckBoxKind kind : {ckCheck, ckCross, cbBox}) {
      column->SetCheckBoxKind(kind);
      EXPECT_EQ(column->GetCheckBoxImageIndex(), themed ? c.state : c.state + 3 * kind)
          << TypeInfo(kind).NameOf(kind).toStdString() << (themed ? " themed" : " plain");
    }
    EXPECT_EQ(column->GetImageIndex(), column->GetCheckBoxImageIndex());
    Close();
  }
}

INSTANTIATE_TEST_SUITE_P(Table, BoxValues,
                         ::testing::Values(ValueCase{"BooleanTrue", "Done", nullptr, 1, 1},
                                           ValueCase{"BooleanFalse", "Done", nullptr, 2, 0},
                                           ValueCase{"BooleanNull", "Done", nullptr, 3, 2},
                                           ValueCase{"NumberOne", "Count", "1;0", 1, 1},
                                           ValueCase{"NumberZero", "Count", "1;0", 2, 0},
                                           ValueCase{"NumberNull", "Count", "1;0", 3, 2},
                                           ValueCase{"NumberOther", "Count", "1;0", 4, 2},
                                           ValueCase{"TextAnyCase", "Answer", "Y;N", 1, 1},
                                           ValueCase{"TextFalse", "Answer", "Y;N", 2, 0},
                                           ValueCase{"TextOther", "Answer", "Y;N", 3, 2},
                                           ValueCase{"TextNull", "Answer", "Y;N", 4, 2},
                                           ValueCase{"EmptyIsFalseWithoutSemicolon", "Answer", "Y", 4, 0}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(BoxColumns, AReadOnlyCellShowsItsValueAlike) {
  OpenTasks(false);
  TQuilColumn* done = ColumnOf("Done");
  done->SetCheckBox(true);
  done->SetReadOnly(true);
  dataSet->FieldByName("Done")->SetReadOnly(true);
  EXPECT_EQ(done->GetCheckBoxImageIndex(), 1);
  GoTo(2);
  EXPECT_EQ(done->GetCheckBoxImageIndex(), 0);
}

// Images on a cross column: an index past the list falls back to the state's image of
// the first family, themed or not.
TEST_F(BoxColumns, ImagesShowTheIndexTheyHaveAndOtherwiseTheState) {
  for (bool themed : {false, true}) {
    OpenTasks(themed);
    TQuilColumn* done = ColumnOf("Done");
    done->SetCheckBox(true);
    done->SetCheckBoxKind(ckCross);
    TImageList images(nullptr);
    FillImages(images, 4);
    done->SetImages(&images);
    GoTo(2);
    EXPECT_EQ(done->GetCheckBoxImageIndex(), 3) << themed;
    GoTo(1);
    EXPECT_EQ(done->GetCheckBoxImageIndex(), 1) << themed;
    FillImages(images, 5);
    EXPECT_EQ(done->GetCheckBoxImageIndex(), 4) << themed;
    GoTo(3);
    EXPECT_EQ(done->GetCheckBoxImageIndex(), 2) << themed;
    Close();
  }
}

// --- Expand boxes

TEST_F(BoxColumns, AnExpandBoxIsCollapsedExceptWhileItsRecordToggles) {
  OpenTasks(false);
  TQuilColumn* name = ColumnOf("Name");
  name->SetExpandBox(true);
  for (TExpandBoxSize size : {ebSmall, ebMedium, ebLarge}) {
    name->SetExpandBoxSize(size);
    int whileToggling = -1;
    grid->OnCellExpand = TDBGridClickEvent([&](TQuilColumn* column) { whileToggling = column->GetImageIndex(); });
    name->ToggleExpandBox();
    EXPECT_EQ(whileToggling, 1 + 3 * size);
    EXPECT_EQ(name->GetExpandBoxImageIndex(), 3 * size);
  }
  // A tree box with no tree view to expand shows no box.
  name->SetExpandBoxTree(true);
  EXPECT_EQ(name->GetExpandBoxImageIndex(), 2 + 3 * ebLarge);
}

TEST_F(BoxColumns, CalcImageIndexMayChooseAnotherExpandStateWithoutImages) {
  OpenTasks(false);
  TQuilColumn* name = ColumnOf("Name");
  name->SetExpandBox(true);
  name->SetExpandBoxSize(ebMedium);
  int asked = 0;
  int choice = 2;
  grid->OnCalcImageIndex = TCalcImageIndexEvent([&](TObject*, TQuilColumn* column, int& index) {
    ++asked;
    EXPECT_EQ(column, name);
    EXPECT_EQ(index, 0) << "the state is asked, not the image";
    index = choice;
  });
  EXPECT_EQ(name->GetExpandBoxImageIndex(), 2 + 3);
  choice = 5;
  EXPECT_EQ(name->GetExpandBoxImageIndex(), 0 + 3) << "only a state is taken";
  EXPECT_EQ(asked, 2);
  TImageList images(nullptr);
  FillImages(images, 9);
  name->SetImages(&images);
  EXPECT_EQ(name->GetExpandBoxImageIndex(), 3);
  EXPECT_EQ(asked, 2) << "with Images the painting asks for the image itself";
}

TEST_F(BoxColumns, AThemedExpandBoxShowsTheStateAlone) {
  OpenTasks(true);
  TQuilColumn* name = ColumnOf("Name");
  name->SetExpandBox(true);
  name->SetExpandBoxSize(ebMedium);
  EXPECT_EQ(name->GetExpandBoxImageIndex(), 0);
  name->SetExpandBoxTree(true);
  EXPECT_EQ(name->GetExpandBoxImageIndex(), 2);
}

// --- The bitmaps

TEST_F(BoxColumns, NoBoxesOnAnEmptyDataSet) {
  OpenTasks(false);
  TQuilColumn* done = ColumnOf("Done");
  TQuilColumn* name = ColumnOf("Name");
  done->SetCheckBox(true);
  name->SetExpandBox(true);
  EXPECT_NE(done->GetCheckBoxImage(), nullptr);
  EXPECT_NE(name->GetExpandBoxImage(), nullptr);
  dataSet->EmptyDataSet();
  EXPECT_EQ(done->GetCheckBoxImage(), nullptr);
  EXPECT_EQ(name->GetExpandBoxImage(), nullptr);
}

// A disabled grid blends the mark with the fixed color and draws the mild frame, and
// leaves the built-in list as it found it.
TEST_F(BoxColumns, ADisabledGridFadesThePlainBox) {
  OpenTasks(false);
  TQuilColumn* done = ColumnOf("Done");
  done->SetCheckBox(true);
  done->SetCheckBoxStyle(cbFlat);
  grid->SetFixedColor(clWhite);
  grid->SetEnabled(false);
  std::unique_ptr<TBitmap> faded = done->GetCheckBoxImage();
  EXPECT_EQ(grid->CheckBoxes()->DrawingStyle(), dsNormal);
  EXPECT_EQ(grid->CheckBoxes()->BlendColor(), clNone);
  TBitmap cell;
  test::WhiteBitmap(cell, 13, 13);
  cell.Canvas()->Draw(0, 0, faded.get());
  // cbMild: shadow left and top, shadow of the raised inner edge right and bottom.
  EXPECT_EQ(test::PixelAt(cell, 0, 6), ColorToRGB(clBtnShadow));
  EXPECT_EQ(test::PixelAt(cell, 6, 0), ColorToRGB(clBtnShadow));
  EXPECT_EQ(test::PixelAt(cell, 12, 6), ColorToRGB(clBtnShadow));
  std::set<TColor> ink;
  for (int y = 2; y < 11; ++y)
    for (int x = 2; x < 11; ++x) ink.insert(test::PixelAt(cell, x, y));
  EXPECT_EQ(ink, (std::set<TColor>{clWhite, RGB(128, 128, 128)})) << "black halfway to white";
}

// Plain boxes are copies of the built-in lists' images, transparent in the olive of the
// strips; their pixels are looked at in painted cells below.
TEST_F(BoxColumns, PlainBoxesAreBuiltInImagesTransparentInOlive) {
  TPixelsPerInch ppi(192);
  OpenTasks(false);
  TQuilColumn* done = ColumnOf("Done");
  TQuilColumn* name = ColumnOf("Name");
  done->SetCheckBox(true);
  name->SetExpandBox(true);
  for (const std::unique_ptr<TBitmap>& box : {done->GetCheckBoxImage(), name->GetExpandBoxImage()}) {
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(dynamic_cast<TThemedBitmap*>(box.get()), nullptr);
    EXPECT_EQ(box->Width(), 26);
    EXPECT_EQ(box->TransparentMode(), tmFixed);
    EXPECT_EQ(box->TransparentColor(), GlyphTransparentColor);
  }
  EXPECT_EQ(test::PixelAt(*name->GetExpandBoxImage(), 0, 0), GlyphTransparentColor) << "the list's background";
}

// --- Themed boxes, as the grid asks for them while it paints

class ThemedBoxes : public BoxColumns {
protected:
  struct Painted {
    TThemedElementDetails details;
    TSize size;
  };
  // Records the themed box of each data row of the column as the cells paint.
  void Watch(TQuilColumn* watched) {
    grid->OnDrawColumnCell =
        TDrawColumnCellEvent([this, watched](TObject*, const TRect&, int, TQuilColumn* column, TGridDrawState) {
          if (column != watched) return;
          std::unique_ptr<TBitmap> image = column->CheckBox() ? column->GetCheckBoxImage() : column->GetExpandBoxImage();
          auto* themed = dynamic_cast<TThemedBitmap*>(image.get());
          ASSERT_NE(themed, nullptr);
          painted[grid->PaintedRow()] = {themed->Details(), {themed->Width(), themed->Height()}};
        });
  }
  // Paints the whole grid anew and returns the box of each data row.
  std::map<int, Painted>& Repaint() {
    painted.clear();
    grid->Invalidate();
    Paint();
    return painted;
  }
  static TThemedElementDetails Button(TThemedButton part) { return TCustomStyleServices::GetElementDetails(part); }

  std::map<int, Painted> painted;
};

TEST_F(ThemedBoxes, ACheckBoxIsTheThemesElementForItsStateInTheBuiltInSize) {
  for (int ppi : {96, 192}) {
    TPixelsPerInch scale(ppi);
    OpenTasks(true);
    TQuilColumn* done = ColumnOf("Done");
    done->SetCheckBox(true);
    done->SetCheckBoxKind(cbBox);
    Watch(done);
    const auto& boxes = Repaint();
    ASSERT_EQ(boxes.size(), 4u);
    EXPECT_EQ(boxes.at(1).details, Button(tbCheckBoxCheckedNormal));
    EXPECT_EQ(boxes.at(2).details, Button(tbCheckBoxUncheckedNormal));
    EXPECT_EQ(boxes.at(3).details, Button(tbCheckBoxMixedNormal));
    const int side = MulDiv(13, ppi, 96);
    EXPECT_EQ(boxes.at(1).size, (TSize{side, side})) << ppi;
    grid->SetEnabled(false);
    EXPECT_EQ(Repaint().at(1).details, Button(tbCheckBoxCheckedDisabled));
    Close();
  }
}

// The box under the pointer is hot, and pressed while the press lasts; with
// ctSelectClick only in the current cell, and never when clicks do not toggle.
TEST_F(ThemedBoxes, TheBoxUnderThePointerIsHotOrPressedWhereAClickToggles) {
  OpenTasks(true);
  TQuilColumn* done = ColumnOf("Done");
  done->SetCheckBox(true);
  Watch(done);
  grid->SetTrackCell({DoneCol, 2});
  grid->SetCellHot(true);
  EXPECT_EQ(Repaint().at(2).details, Button(tbCheckBoxUncheckedHot));
  EXPECT_EQ(painted.at(1).details, Button(tbCheckBoxCheckedNormal)) << "another row";
  grid->SetCellPressed(true);
  EXPECT_EQ(Repaint().at(2).details, Button(tbCheckBoxUncheckedPressed));
  done->SetCheckBoxToggle(ctSelectClick);
  EXPECT_EQ(Repaint().at(2).details, Button(tbCheckBoxUncheckedNormal)) << "not the current cell";
  grid->SetCol(DoneCol);
  dataSet->Next();
  ASSERT_EQ(grid->Row(), 2);
  EXPECT_EQ(Repaint().at(2).details, Button(tbCheckBoxUncheckedPressed));
  done->SetCheckBoxToggle(ctKeyPressOnly);
  EXPECT_EQ(Repaint().at(2).details, Button(tbCheckBoxUncheckedNormal));
}

// Under a custom style the box has the style's own size, given for 96 pixels per inch.
TEST_F(ThemedBoxes, ACustomStylesCheckBoxKeepsItsOwnSizeScaledToTheResolution) {
  TPixelsPerInch ppi(192);
  gridtest::TTestStyle style(QStringLiteral("Box Style"), RGB(90, 91, 92), RGB(40, 41, 42));
  OpenTasks(true);
  TQuilColumn* done = ColumnOf("Done");
  done->SetCheckBox(true);
  Watch(done);
  TSize own;
  ASSERT_TRUE(StyleServices()->GetElementSize(nullptr, Button(tbCheckBoxCheckedNormal), esActual, own));
  ASSERT_NE(own.cx, 13);
  EXPECT_EQ(Repaint().at(1).size, (TSize{own.cx * 2, own.cy * 2}));
}

// The tree glyph, grown by two pixels a size step and scaled from 96 per inch; the row
// without a box has an empty element.
TEST_F(ThemedBoxes, AnExpandBoxIsTheThemesTreeGlyph) {
  for (int ppi : {96, 192}) {
    TPixelsPerInch scale(ppi);
    OpenTasks(true);
    TQuilColumn* name = ColumnOf("Name");
    name->SetExpandBox(true);
    Watch(name);
    TSize glyph;
    ASSERT_TRUE(StyleServices()->GetElementSize(nullptr, TCustomStyleServices::GetElementDetails(ttGlyphClosed),
                                                esActual, glyph));
    for (TExpandBoxSize size : {ebSmall, ebLarge}) {
      name->SetExpandBoxSize(size);
      const Painted box = Repaint().at(1);
      EXPECT_EQ(box.details, TCustomStyleServices::GetElementDetails(ttGlyphClosed));
      const int side = MulDiv(glyph.cx + 2 * size, ppi, 96);
      EXPECT_EQ(box.size, (TSize{side, side})) << ppi << " size " << size;
    }
    int expandedDrawn = 0;
    grid->OnCellExpand = TDBGridClickEvent([&](TQuilColumn* column) {
      std::unique_ptr<TBitmap> image = column->GetExpandBoxImage();
      EXPECT_EQ(static_cast<TThemedBitmap*>(image.get())->Details(),
                TCustomStyleServices::GetElementDetails(ttGlyphOpened));
      ++expandedDrawn;
    });
    name->ToggleExpandBox();
    EXPECT_EQ(expandedDrawn, 1);
    name->SetExpandBoxTree(true);
    const Painted none = Repaint().at(1);
    EXPECT_EQ(none.details, TCustomStyleServices::GetElementDetails(ttTreeviewDontCare));
    EXPECT_EQ(none.size, (TSize{0, 0}));
    Close();
  }
}


// --- Boxes in painted cells, at 100% and 200%

class PaintedBoxes : public BoxColumns, public ::testing::WithParamInterface<int> {
protected:
  // The box columns on yellow, the current row without a color of its own and the
  // cursor in the Answer column; the fonts scaled to the pixels per inch.
  void OpenBoxes(bool themed) {
    OpenTasks(themed);
    const int ppi = GetParam();
    form->SetBounds(0, 0, MulDiv(520, ppi, 96), MulDiv(280, ppi, 96));
    grid->SetBounds(10, 10, MulDiv(480, ppi, 96), MulDiv(240, ppi, 96));
    for (TFont* font : {grid->Font(), grid->TitleFont()}) font->SetHeight(MulDiv(font->Height(), ppi, 96));
    done = ColumnOf("Done");
    name = ColumnOf("Name");
    done->SetCheckBox(true);
    name->SetExpandBox(true);
    done->SetColor(clYellow);
    name->SetColor(clYellow);
    grid->SetSelectRowColor(clNone);
    grid->SetCol(3);
    Settle();
  }
  TRect Cell(int rawCol, int rawRow) const {
    TRect rect = grid->CellRect(rawCol, rawRow);
    const int border = (grid->Width() - grid->ClientWidth()) / 2;
    rect.Offset(border, border);
    return rect;
  }
  // The smallest rectangle of the cell that holds every pixel not of its yellow.
  static TRect InkIn(const QImage& image, const TRect& cell) {
    TRect bounds{cell.Right, cell.Bottom, cell.Left, cell.Top};
    for (int y = cell.Top; y < cell.Bottom; ++y)
      for (int x = cell.Left; x < cell.Right; ++x)
        if (At(image, x, y) != clYellow) {
          bounds.Left = std::min(bounds.Left, x);
          bounds.Top = std::min(bounds.Top, y);
          bounds.Right = std::max(bounds.Right, x + 1);
          bounds.Bottom = std::max(bounds.Bottom, y + 1);
        }
    return bounds;
  }
  static int CountOf(const QImage& image, const TRect& rect, TColor color) {
    int count = 0;
    for (int y = rect.Top; y < rect.Bottom; ++y)
      for (int x = rect.Left; x < rect.Right; ++x) count += At(image, x, y) == color;
    return count;
  }
  static void ExpectCentered(const TRect& box, const TRect& cell) {
    EXPECT_LE(std::abs((box.Left - cell.Left) - (cell.Right - box.Right)), 1);
    EXPECT_LE(std::abs((box.Top - cell.Top) - (cell.Bottom - box.Bottom)), 1);
  }
  int Side() const { return MulDiv(13, GetParam(), 96); }

  TQuilColumn* done = nullptr;
  TQuilColumn* name = nullptr;
};

// FixedStyle fsDefault gives cbDefault: a shadow and a black ring at the left and top, a
// light and a highlight ring at the right and bottom, the mark inside.
TEST_P(PaintedBoxes, APlainCheckBoxSitsCenteredInItsFrameWithTheMarkOfItsValue) {
  TPixelsPerInch ppi(GetParam());
  OpenBoxes(false);
  const QImage image = Grab();
  int inkOf[4] = {};
  for (int row = 1; row <= 3; ++row) {
    SCOPED_TRACE(row);
    const TRect cell = Cell(DoneCol, row);
    const TRect box = InkIn(image, cell);
    EXPECT_EQ(box.Width(), Side());
    EXPECT_EQ(box.Height(), Side());
    ExpectCentered(box, cell);
    const int middle = box.Top + box.Height() / 2;
    EXPECT_EQ(At(image, box.Left, middle), ColorToRGB(clBtnShadow));
    EXPECT_EQ(At(image, box.Left + 1, middle), ColorToRGB(clWindowFrame));
    EXPECT_EQ(At(image, box.Right - 1, middle), ColorToRGB(clBtnHighlight));
    EXPECT_EQ(At(image, box.Right - 2, middle), ColorToRGB(cl3DLight));
    TRect inside = box;
    inside.Inflate(-2, -2);
    inkOf[row] = CountOf(image, inside, clBlack);
    EXPECT_EQ(inkOf[row] + CountOf(image, inside, clYellow), inside.Width() * inside.Height()) << "only ink and face";
  }
  EXPECT_GT(inkOf[1], Side()) << "checked";
  EXPECT_EQ(inkOf[2], 0) << "unchecked";
  EXPECT_GT(inkOf[3], 0) << "grayed";
  EXPECT_LT(inkOf[3], inkOf[1]) << "grayed is dithered";
}

// The large box of a collapsed record shows a plus; while the record toggles, a minus.
TEST_P(PaintedBoxes, APlainExpandBoxShowsItsSignCentered) {
  TPixelsPerInch ppi(GetParam());
  OpenBoxes(false);
  QImage whileToggling;
  grid->OnCellExpand = TDBGridClickEvent([&](TQuilColumn*) { whileToggling = Grab(); });
  name->ToggleExpandBox();
  ASSERT_FALSE(whileToggling.isNull());
  const QImage image = Grab();
  const TRect cell = Cell(NameCol, 1);
  const TRect box = InkIn(image, cell);
  EXPECT_EQ(box.Width(), box.Height());
  EXPECT_LT(box.Width(), Side());
  EXPECT_GT(box.Width(), Side() * 3 / 4);
  ExpectCentered(box, cell);
  // The column through the middle: the frame's top and bottom, and the plus's upright.
  const int middle = box.Left + box.Width() / 2;
  const TRect upright = Rect(middle, box.Top, middle + 1, box.Bottom);
  const int collapsed = CountOf(image, upright, clBlack);
  EXPECT_GT(collapsed, box.Height() / 2);
  EXPECT_EQ(InkIn(whileToggling, cell), box);
  EXPECT_LT(CountOf(whileToggling, upright, clBlack), collapsed / 2) << "a minus has no upright";
  EXPECT_EQ(CountOf(whileToggling, Rect(middle, Cell(NameCol, 2).Top, middle + 1, Cell(NameCol, 2).Bottom), clBlack),
            collapsed)
      << "the other records stay collapsed";
}

// A themed box takes the built-in glyph's room, and a press shows on its cell alone.
TEST_P(PaintedBoxes, AThemedCheckBoxLooksPressedOnlyWhereThePointerPresses) {
  TPixelsPerInch ppi(GetParam());
  OpenBoxes(true);
  const QImage before = Grab();
  for (int row = 1; row <= 3; ++row) {
    const TRect cell = Cell(DoneCol, row);
    const TRect box = InkIn(before, cell);
    EXPECT_LE(box.Width(), Side()) << row;
    EXPECT_GE(box.Width(), Side() - 2) << row;
    ExpectCentered(box, cell);
  }
  grid->SetTrackCell({DoneCol, 2});
  grid->SetCellHot(true);
  grid->SetCellPressed(true);
  grid->Invalidate();
  const QImage pressed = Grab();
  const auto same = [&](int row) {
    const TRect cell = Cell(DoneCol, row);
    const QRect area(cell.Left, cell.Top, cell.Width(), cell.Height());
    return before.copy(area) == pressed.copy(area);
  };
  EXPECT_TRUE(same(1));
  EXPECT_FALSE(same(2));
  EXPECT_TRUE(same(3));
}

// Every kind and value in a plain and a themed grid (QUIL_GRAPHICS_SNAPSHOTS saves them).
TEST_P(PaintedBoxes, EveryKindShowsItsBoxesInPlainAndThemedGrids) {
  TPixelsPerInch ppi(GetParam());
  for (bool themed : {false, true}) {
    OpenBoxes(themed);
    TQuilColumn* count = ColumnOf("Count");
    TQuilColumn* answer = ColumnOf("Answer");
    count->SetCheckBox(true);
    count->SetCheckBoxValues("1;0");
    count->SetCheckBoxKind(ckCross);
    answer->SetCheckBox(true);
    answer->SetCheckBoxValues("Y;N");
    answer->SetCheckBoxKind(cbBox);
    const QImage image = Grab();
    Save(image, QStringLiteral("checkbox-grid-%1-%2").arg(themed ? "themed" : "plain").arg(GetParam()).toUtf8().constData());
    for (int rawCol = DoneCol; rawCol <= NameCol; ++rawCol)
      for (int row = 2; row <= 4; ++row) {
        const TRect cell = Cell(rawCol, row);
        const TRect inside = Rect(cell.Left + 1, cell.Top + 1, cell.Right - 1, cell.Bottom - 1);
        const int background = CountOf(image, inside, At(image, inside.Left, inside.Top));
        EXPECT_LT(background, inside.Width() * inside.Height()) << "a box in " << rawCol << ", " << row;
      }
    Close();
  }
}

INSTANTIATE_TEST_SUITE_P(Scale, PaintedBoxes, ::testing::Values(96, 192),
                         [](const auto& info) { return "ppi" + std::to_string(info.param); });

}  // namespace
