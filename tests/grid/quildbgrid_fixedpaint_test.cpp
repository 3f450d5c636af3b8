// The painted fixed cells, offscreen: the frame of each FixedStyle at its edge pixels, the
// line under a header band, the title's marker, button and image, the row marks and the
// corner, the pressed and hot title, merged total cells, and the themed and gradient
// faces; at 96 and 192 pixels per inch. QUIL_GRAPHICS_SNAPSHOTS saves the pictures.
#include <QImage>
#include <functional>
#include <memory>
#include <optional>

#include "GridTestKit.h"
#include "framework/controls/ScrollBars.h"
#include "framework/db/DataSet.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/ImageList.h"
#include "framework/rtl/TypInfo.h"

using namespace quil;
using gridtest::GridFixture;
using namespace gridtest::peoplecols;
using gridtest::TPixelsPerInch;

namespace {

class FixedPaint : public GridFixture {
protected:
  // The grid made at ppi, with its indicator as wide as the glyphs need there.
  void OpenAt(int ppi, int rows = 10) {
    scale.emplace(ppi);
    Open(rows);
    grid->SetIndicatorWidth(MulDiv(20, ppi, 96));
    grid->Columns()->SetState(csCustomized);
  }
  // No theme and no gradient: the frame of FixedStyle alone.
  void Classic(TFixedStyle style = fsDefault) {
    grid->SetDrawingStyle(gdsClassic);
    grid->SetFixedStyle(style);
    Paint();
  }
  TQuilColumn* Column(int rawCol) { return grid->Columns()->Items(grid->RawToDataColumn(rawCol)); }
  // A cell in the grab's coordinates, which hold the window's frame.
  TRect Cell(int rawCol, int rawRow) const {
    TRect rect = grid->CellRect(rawCol, rawRow);
    const int border = (grid->Width() - grid->ClientWidth()) / 2;
    rect.Offset(border, border);
    return rect;
  }
  static TColor Rgb(TColor color) { return ColorToRGB(color); }
  // Pixels of rect that differ from background.
  static int Ink(const QImage& image, const TRect& rect, TColor background) {
    int count = 0;
    for (int y = std::max(rect.Top, 0); y < std::min(rect.Bottom, image.height()); ++y)
      for (int x = std::max(rect.Left, 0); x < std::min(rect.Right, image.width()); ++x)
        if (At(image, x, y) != Rgb(background)) ++count;
    return count;
  }
  // The columns that hold ink in rect, as a span; empty when none.
  static TRect InkSpan(const QImage& image, const TRect& rect, TColor background) {
    TRect span{rect.Right, rect.Top, rect.Left, rect.Bottom};
    for (int y = rect.Top; y < rect.Bottom; ++y)
      for (int x = rect.Left; x < rect.Right; ++x)
        if (At(image, x, y) != Rgb(background)) {
          span.Left = std::min(span.Left, x);
          span.Right = std::max(span.Right, x + 1);
        }
    return span.IsEmpty() ? TRect{} : span;
  }
  // The picture, and a part of it (the top left quarter unless told) four times as large
  // for a look at the edges.
  void Snapshot(const QImage& image, const QString& name, std::optional<TRect> part = std::nullopt) {
    Save(image, name.toLatin1().constData());
    const TRect zoom = part.value_or(Rect(0, 0, image.width() / 2, image.height() / 4));
    const QImage detail = image.copy(zoom.Left, zoom.Top, zoom.Width(), zoom.Height());
    Save(detail.scaled(detail.size() * 4), (name + QStringLiteral("-zoom")).toLatin1().constData());
  }

  // A list of plain squares, image i in Swatch(i), that tells which image a cell drew.
  static TColor Swatch(int index) { return RGB(20 + 9 * index, 200 - 7 * index, 60 + 5 * index); }
  static std::unique_ptr<TImageList> Swatches(int count) {
    auto list = std::make_unique<TImageList>(8, 8);
    for (int index = 0; index < count; ++index) {
      TBitmap square(8, 8);
      square.Canvas()->Brush()->SetColor(Swatch(index));
      square.Canvas()->FillRect(Rect(0, 0, 8, 8));
      list->Add(&square, nullptr);
    }
    return list;
  }
  // The pixel in the middle of the title button of a title over rect: at its right or,
  // mirrored, at its left.
  static TColor ButtonMiddle(const QImage& image, const TRect& title, bool mirrored = false) {
    const int half = GetSystemMetrics(SM_CXHSCROLL) / 2;
    return At(image, mirrored ? title.Left + half : title.Right - half, (title.Top + title.Bottom) / 2);
  }

  // The first column of dark (text) ink inside a title, away from its edges; -1 when none.
  static int CaptionLeft(const QImage& image, const TRect& title) {
    for (int x = title.Left + 3; x < title.Right - 3; ++x)
      for (int y = title.Top + 3; y < title.Bottom - 3; ++y)
        if (qGray(image.pixel(x, y)) < 100) return x;
    return -1;
  }

  std::optional<TPixelsPerInch> scale;
};

// --- The frame of each FixedStyle

struct FrameCase {
  TFixedStyle style;
  TColor top;     // the title's top edge
  TColor bottom;  // its bottom edge
  TColor line;    // the row line below it
};

void PrintTo(const FrameCase& frame, std::ostream* out) {
  *out << TypeInfo(TFixedStyle()).NameOf(frame.style).toStdString();
}

class FixedFrame : public FixedPaint, public ::testing::WithParamInterface<std::tuple<FrameCase, int>> {};

TEST_P(FixedFrame, EdgesTheTitleInTheColorsOfItsStyle) {
  const auto& [frame, ppi] = GetParam();
  OpenAt(ppi);
  Classic(frame.style);
  const QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-%1-%2").arg(TypeInfo(TFixedStyle()).NameOf(frame.style)).arg(ppi));
  const TRect city = Cell(CityCol, 0);
  const int x = city.Right - 4;  // right of the caption, left of the marker's place
  EXPECT_EQ(At(image, x, city.Top), Rgb(frame.top));
  EXPECT_EQ(At(image, x, city.Bottom - 1), Rgb(frame.bottom));
  EXPECT_EQ(At(image, x, city.Bottom), Rgb(frame.line));
  EXPECT_EQ(At(image, city.Right, (city.Top + city.Bottom) / 2), Rgb(frame.line)) << "the column line";
  EXPECT_EQ(At(image, city.Left, city.Top + 3), Rgb(frame.top)) << "the left edge";
  // The indicator of a data row has the same frame.
  const TRect indicator = Cell(IndicatorCol, 3);
  EXPECT_EQ(At(image, indicator.Left + 2, indicator.Bottom), Rgb(frame.line));
}

INSTANTIATE_TEST_SUITE_P(
    Styles, FixedFrame,
    ::testing::Combine(::testing::Values(FrameCase{fsDefault, clBtnHighlight, clBtnShadow, clBlack},
                                         FrameCase{fsSoft, clBtnHighlight, clBtnShadow, cl3DDkShadow},
                                         FrameCase{fsNice, clBtnHighlight, clBtnFace, clBlack},
                                         FrameCase{fsFlat, cl3DLight, clBtnFace, clBlack},
                                         FrameCase{fsGreat, clBtnHighlight, clBtnFace, cl3DDkShadow},
                                         FrameCase{fsGray, cl3DLight, clBtnFace, cl3DDkShadow},
                                         FrameCase{fsFine, clBtnHighlight, clBtnFace, clBtnShadow},
                                         FrameCase{fsMild, cl3DLight, clBtnFace, clBtnShadow}),
                       ::testing::Values(96, 192)));

TEST_F(FixedPaint, WithoutRowLinesEveryFrameIsAPlainBlackLineAndNoThemeIsUsed) {
  OpenAt(96);
  grid->SetFixedStyle(fsSoft);
  grid->SwitchOptions({dgRowLines}, false);
  Paint();
  const QImage image = Grab();
  const TRect city = Cell(CityCol, 0);
  const int y = (city.Top + city.Bottom) / 2;
  EXPECT_EQ(At(image, city.Right, y), clBlack);
  EXPECT_EQ(At(image, city.Right - 1, y), Rgb(clBtnFace)) << "no raised edge";
  EXPECT_EQ(At(image, city.Right - 4, city.Top), Rgb(clBtnFace)) << "no theme's header";
}

// --- Bands

TEST_F(FixedPaint, ABandSpansItsColumnsInTheHeaderColorAboveALineOfItsOwn) {
  for (int ppi : {96, 192}) {
    SCOPED_TRACE(ppi);
    OpenAt(ppi);
    Column(NameCol)->Title()->SetHeader(QStringLiteral("Where"));
    Column(CityCol)->Title()->SetHeader(QStringLiteral("Where"));
    grid->SetHeaderColor(clYellow);
    Classic();
    QImage image = Grab();
    Snapshot(image, QStringLiteral("fixed-band-%1").arg(ppi));
    const TRect name = Cell(NameCol, 0);
    const TRect city = Cell(CityCol, 0);
    const int band = grid->TitleLineHeight();
    const int x = city.Right - 4;
    EXPECT_EQ(At(image, x, name.Top + band / 2), clYellow);
    EXPECT_EQ(At(image, city.Left - 1, name.Top + 2), clYellow) << "no line between the columns of a band";
    EXPECT_EQ(At(image, x, name.Top + band - 1), clBlack) << "the band's row line";
    EXPECT_EQ(At(image, x, name.Top + band), Rgb(clBtnHighlight)) << "the caption's own top edge";
    EXPECT_EQ(At(image, x, name.Top + band + 4), Rgb(clBtnFace)) << "the caption keeps the title's color";
    // The band's text stands in the middle of the two columns.
    const TRect text = InkSpan(image, Rect(name.Left + 2, name.Top + 2, city.Right - 2, name.Top + band - 3), clYellow);
    ASSERT_FALSE(text.IsEmpty());
    EXPECT_NEAR((text.Left + text.Right) / 2, (name.Left + city.Right) / 2, 2);
    grid->SetFixedStyle(fsSoft);
    Paint();
    image = Grab();
    EXPECT_EQ(At(image, x, name.Top + band - 1), Rgb(cl3DDkShadow)) << "under a soft style the raised edge";
    delete form;
    form = nullptr;
    scale.reset();
  }
}

TEST_F(FixedPaint, UnderABandAWideGridLineGoesOnInLightGray) {
  OpenAt(96);
  Column(NameCol)->Title()->SetHeader(QStringLiteral("Where"));
  Column(CityCol)->Title()->SetHeader(QStringLiteral("Where"));
  grid->SetHeaderColor(clYellow);
  for (int width : {1, 2}) {
    SCOPED_TRACE(width);
    grid->SetGridLineWidth(width);
    Classic();
    const QImage image = Grab();
    const TRect city = Cell(CityCol, 0);
    const int x = city.Right - 4;
    int line = city.Top + grid->TitleLineHeight() / 2;
    while (line < city.Bottom && At(image, x, line) != clBlack) ++line;
    ASSERT_LT(line, city.Bottom) << "the band's black line";
    // The frame's line below the band stays black under a thin line and turns light gray
    // under the second pixel of a wide one.
    EXPECT_EQ(At(image, x, line + 1), width == 1 ? clBlack : TColor(14474460));
  }
}

TEST_F(FixedPaint, ARightToLeftGridMirrorsBandsAndFramesWithItsCells) {
  OpenAt(96);
  Column(NameCol)->Title()->SetHeader(QStringLiteral("Where"));
  Column(CityCol)->Title()->SetHeader(QStringLiteral("Where"));
  grid->SetHeaderColor(clYellow);
  grid->SetBiDiMode(bdRightToLeft);
  Classic();
  const QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-band-mirrored"), Rect(image.width() / 2, 0, image.width(), 60));
  const TRect name = Cell(NameCol, 0);
  const TRect city = Cell(CityCol, 0);
  ASSERT_LT(city.Right, name.Left) << "City stands left of Name";
  EXPECT_EQ(At(image, city.Left + 4, city.Top + 2), clYellow);
  EXPECT_EQ(At(image, name.Right - 4, name.Top + 2), clYellow);
  EXPECT_EQ(At(image, name.Left - 1, name.Top + 2), clYellow) << "one band across both";
  const int band = grid->TitleLineHeight();
  EXPECT_EQ(At(image, city.Left + 4, city.Top + band), Rgb(clBtnHighlight)) << "the caption's top edge";
  EXPECT_EQ(At(image, city.Left + 4, city.Bottom), clBlack);
  EXPECT_EQ(At(image, city.Left, city.Top + band + 4), Rgb(clBtnHighlight)) << "light on the left as ever";
}

// --- Title content

TEST_F(FixedPaint, TheMarkerStandsAtTheRightOrBesideTheCaption) {
  for (int ppi : {96, 192}) {
    SCOPED_TRACE(ppi);
    OpenAt(ppi);
    grid->SwitchOptions({dgMarkerAutoAlign}, false);
    Classic();
    const TRect city = Cell(CityCol, 0);
    const int width = grid->GetMarkers()->Width();
    const TRect place = Rect(city.Right - width - 6, city.Top + 2, city.Right - 2, city.Bottom - 2);
    EXPECT_EQ(Ink(Grab(), place, clBtnFace), 0) << "no marker";
    Column(CityCol)->Title()->SetMarkerIndex(0);
    Paint();
    QImage image = Grab();
    Snapshot(image, QStringLiteral("fixed-marker-%1").arg(ppi));
    EXPECT_GT(Ink(image, place, clBtnFace), 4);
    grid->SwitchOptions({dgMarkerAutoAlign}, true);
    Paint();
    image = Grab();
    EXPECT_EQ(Ink(image, place, clBtnFace), 0) << "moved next to the caption";
    const TRect inks = InkSpan(image, Rect(city.Left + 2, city.Top + 2, city.Right - 2, city.Bottom - 2), clBtnFace);
    grid->Canvas()->SetFont(Column(CityCol)->Title()->Font());
    const int caption = grid->Canvas()->TextWidth(QStringLiteral("City"));
    EXPECT_GT(inks.Right, city.Left + caption + 4) << "the marker's ink after the caption";
    EXPECT_LT(inks.Right, city.Left + caption + width + 10);
    delete form;
    form = nullptr;
    scale.reset();
  }
}

TEST_F(FixedPaint, BesideACenteredCaptionTheMarkerLeavesTheCaptionWhereItWas) {
  OpenAt(96);
  Column(CityCol)->Title()->SetAlignment(taCenter);
  Column(CityCol)->Title()->SetMarkerIndex(0);
  grid->Canvas()->SetFont(Column(CityCol)->Title()->Font());
  const int caption = grid->Canvas()->TextWidth(QStringLiteral("City"));
  // Where the caption starts, and the marker's ink after the caption.
  auto inks = [&](bool autoAlign) {
    grid->SwitchOptions({dgMarkerAutoAlign}, autoAlign);
    Classic();
    const QImage image = Grab();
    const TRect city = Cell(CityCol, 0);
    const int captionLeft = CaptionLeft(image, city);
    const int y = (city.Top + city.Bottom) / 2;
    const TRect marker =
        InkSpan(image, Rect(captionLeft + caption + 1, y - 6, city.Right - 3, y + 6), clBtnFace);
    return std::pair{captionLeft, marker};
  };
  const auto [apartCaption, apart] = inks(false);
  const auto [besideCaption, beside] = inks(true);
  ASSERT_GE(apartCaption, 0);
  ASSERT_FALSE(beside.IsEmpty());
  EXPECT_EQ(besideCaption, apartCaption) << "the caption stays centered";
  EXPECT_LT(beside.Left, apart.Left) << "the marker moves next to the caption";
  EXPECT_LT(beside.Left, besideCaption + caption + 8);
}

TEST_F(FixedPaint, AGroupsTitleShowsItsButtonAndATitleImageComesBeforeTheCaption) {
  OpenAt(96);
  Column(NameCol)->SetExpandCols(2);
  Column(NameCol)->SetExpanded(false);
  TImageList images(8, 8);
  TBitmap red(8, 8);
  red.Canvas()->Brush()->SetColor(clRed);
  red.Canvas()->FillRect(Rect(0, 0, 8, 8));
  images.Add(&red, nullptr);
  grid->SetTitleImages(&images);
  Column(1)->Title()->SetImageIndex(0);
  Classic();
  const QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-button-image"));
  const TRect group = Cell(NameCol, 0);
  const int button = GetSystemMetrics(SM_CXHSCROLL);
  const TRect buttonPlace = Rect(group.Right - button, group.Top + 2, group.Right - 2, group.Bottom - 2);
  EXPECT_GT(Ink(image, buttonPlace, clBtnFace), 4) << "the expand button's glyph";
  const TRect id = Cell(1, 0);
  const int middle = (id.Top + id.Bottom) / 2;
  const TRect ink = InkSpan(image, Rect(id.Left + 1, middle, id.Right - 1, middle + 1), clBtnFace);
  EXPECT_EQ(At(image, ink.Left, middle), clRed) << "the image first";
  EXPECT_EQ(ink.Left, id.Left + 1 + 1) << "after the title's margin and the text margin";
  // The system's look draws the button as a fixed cell under the same glyph.
  grid->SetDrawingStyle(gdsThemed);
  Paint();
  const QImage themed = Grab();
  Snapshot(themed, QStringLiteral("fixed-button-system"));
  TColor face = clNone;
  StyleServices()->GetElementColor(TCustomStyleServices::GetElementDetails(tgFixedCellNormal), ecFillColor, face);
  EXPECT_GT(Ink(themed, Rect(buttonPlace.Left + 4, buttonPlace.Top, buttonPlace.Right - 4, buttonPlace.Bottom), face),
            4);
}

TEST_F(FixedPaint, ATitleButtonShowsTheIndicatorGlyphOfItsKindOrKeepsItsPlaceEmpty) {
  OpenAt(96);
  auto glyphs = Swatches(12);
  grid->SetIndicatorImages(glyphs.get());
  Column(IdCol)->SetExpandStyle(cesDropDown);
  Column(NameCol)->SetExpandCols(2);
  Column(NameCol)->SetExpanded(false);
  Classic();
  QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-button-glyphs"));
  EXPECT_EQ(ButtonMiddle(image, Cell(IdCol, 0)), Swatch(9)) << "the drop-down";
  EXPECT_EQ(ButtonMiddle(image, Cell(NameCol, 0)), Swatch(11)) << "a collapsed group";
  Column(NameCol)->SetExpanded(true);
  Paint();
  // The expanded group's title spans its columns, City and Amount; its own column hides.
  const TRect group = Rect(Cell(CityCol, 0).Left, Cell(CityCol, 0).Top, Cell(AmountCol, 0).Right,
                           Cell(CityCol, 0).Bottom);
  EXPECT_EQ(ButtonMiddle(Grab(), group), Swatch(10)) << "an expanded group";
  Column(NameCol)->SetExpanded(false);
  grid->SetBiDiMode(bdRightToLeft);
  Paint();
  image = Grab();
  EXPECT_EQ(ButtonMiddle(image, Cell(NameCol, 0), true), Swatch(10)) << "a collapsed group, mirrored";
  EXPECT_EQ(ButtonMiddle(image, Cell(IdCol, 0), true), Swatch(9));
  grid->SetBiDiMode(bdLeftToRight);
  // With too few glyphs the button shows none, yet keeps its room from the caption.
  auto few = Swatches(11);
  grid->SetIndicatorImages(few.get());
  Column(IdCol)->Title()->SetAlignment(taRightJustify);
  Paint();
  image = Grab();
  const TRect id = Cell(IdCol, 0);
  const int button = GetSystemMetrics(SM_CXHSCROLL);
  const TRect caption = InkSpan(image, Rect(id.Left + 2, id.Top + 2, id.Right - 2, id.Bottom - 2), clBtnFace);
  ASSERT_FALSE(caption.IsEmpty());
  EXPECT_LE(caption.Right, id.Right - button) << "no glyph, and the caption stays left of the button's room";
}

TEST_F(FixedPaint, AnImageAloneInItsTitleStandsInTheMiddle) {
  OpenAt(96);
  auto images = Swatches(1);
  grid->SetTitleImages(images.get());
  Column(CityCol)->Title()->SetImageIndex(0);
  Column(CityCol)->Title()->SetCaption(QStringLiteral(" "));
  Classic();
  const TRect city = Cell(CityCol, 0);
  const int middle = (city.Top + city.Bottom) / 2;
  TRect ink = InkSpan(Grab(), Rect(city.Left + 2, middle, city.Right - 2, middle + 1), clBtnFace);
  EXPECT_NEAR((ink.Left + ink.Right) / 2, (city.Left + city.Right) / 2, 1);
  EXPECT_EQ(ink.Width(), 8) << "and nothing else";
  // A marker keeps the image at the caption's left.
  Column(CityCol)->Title()->SetMarkerIndex(0);
  Paint();
  ink = InkSpan(Grab(), Rect(city.Left + 2, middle, city.Right - 2, middle + 1), clBtnFace);
  EXPECT_LT(ink.Left, city.Left + 4);
}

// --- The indicator and the corner

TEST_F(FixedPaint, TheIndicatorMarksTheCurrentRowOnly) {
  for (int ppi : {96, 192}) {
    SCOPED_TRACE(ppi);
    OpenAt(ppi);
    Classic();
    grid->MoveBy(2);
    Paint();
    const QImage image = Grab();
    Snapshot(image, QStringLiteral("fixed-indicator-%1").arg(ppi));
    auto inside = [&](int rawRow) {
      TRect cell = Cell(IndicatorCol, rawRow);
      cell.Inflate(-2, -2);
      return cell;
    };
    EXPECT_GT(Ink(image, inside(3), clBtnFace), 3) << "the current row";
    EXPECT_EQ(Ink(image, inside(1), clBtnFace), 0);
    EXPECT_EQ(Ink(image, inside(4), clBtnFace), 0);
    delete form;
    form = nullptr;
    scale.reset();
  }
}

TEST_F(FixedPaint, TheRowMarkFollowsTheDataSetsStateAndMayBeTurnedOff) {
  OpenAt(96);
  Classic();
  int activeMark = -2;
  grid->OnCalcImageIndex = [&](TObject*, TQuilColumn* column, int& index) {
    if (!column && grid->DataLink()->ActiveRecord() == grid->Row() - grid->TitleOffset()) activeMark = index;
  };
  grid->Invalidate();
  Paint();
  EXPECT_EQ(activeMark, 0);
  dataSet->Edit();
  grid->Invalidate();
  Paint();
  EXPECT_EQ(activeMark, 1);
  dataSet->Cancel();
  dataSet->Insert();
  grid->Invalidate();
  Paint();
  EXPECT_EQ(activeMark, 2);
  dataSet->Cancel();
  grid->SwitchOptions({dgIndicatorMarkOff}, true);
  Paint();
  TRect cell = Cell(IndicatorCol, grid->Row());
  cell.Inflate(-2, -2);
  EXPECT_EQ(Ink(Grab(), cell, clBtnFace), 0);
}

TEST_F(FixedPaint, TheCornerShowsItsGlyphAcrossAllTitleRows) {
  OpenAt(96);
  Column(NameCol)->SetExpandCols(2);
  ASSERT_EQ(grid->TitleOffset(), 2);
  grid->SetFillerColor(clAqua);
  Classic();
  QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-corner"));
  const TRect corner = Cell(IndicatorCol, 0);
  const int titleBottom = Cell(IndicatorCol, 1).Bottom;
  const TRect inside = Rect(corner.Left + 2, corner.Top + 2, corner.Right - 2, titleBottom - 2);
  const TRect ink = InkSpan(image, inside, clAqua);
  ASSERT_FALSE(ink.IsEmpty()) << "FillerIndex -7: indicator 5";
  EXPECT_EQ(At(image, corner.Left + 3, corner.Bottom), clAqua) << "no line between the title rows";
  grid->SetFillerIndex(-1);
  Paint();
  EXPECT_EQ(Ink(Grab(), inside, clAqua), 0);
}

TEST_F(FixedPaint, TheCornerTakesATitleImageOrAnIndicatorAndSinksWithItsPress) {
  OpenAt(96);
  auto titleImages = Swatches(2);
  auto indicators = Swatches(12);
  grid->SetTitleImages(titleImages.get());
  grid->SetIndicatorImages(indicators.get());
  grid->SetFillerIndex(1);
  Classic();
  const TRect corner = Cell(IndicatorCol, 0);
  const TRect inside = Rect(corner.Left + 2, corner.Top + 2, corner.Right - 2, corner.Bottom - 2);
  const int middleX = (corner.Left + corner.Right) / 2;
  const int middleY = (corner.Top + corner.Bottom) / 2;
  QImage image = Grab();
  EXPECT_EQ(At(image, middleX, middleY), Swatch(1)) << "image 1 of TitleImages";
  const TRect at = InkSpan(image, inside, clBtnFace);
  grid->SetFillerIndex(-3);
  Paint();
  EXPECT_EQ(At(Grab(), middleX, middleY), Swatch(1)) << "-3: indicator 1";
  grid->SetFillerIndex(2);
  Paint();
  EXPECT_EQ(Ink(Grab(), inside, clBtnFace), 0) << "past the end of TitleImages";
  grid->SetFillerIndex(-14);
  Paint();
  EXPECT_EQ(Ink(Grab(), inside, clBtnFace), 0) << "past the end of the indicators";
  grid->SetFillerIndex(1);
  grid->SetTitlePressed(true);
  grid->InvalidateTitle(nullptr);
  Paint();
  image = Grab();
  EXPECT_EQ(InkSpan(image, Rect(inside.Left, middleY, inside.Right, middleY + 1), clBtnFace).Left, at.Left + 1)
      << "a press of the corner moves its image by a pixel";
  grid->SetTitlePressed(false);
}

// --- Pressed and hot titles

TEST_F(FixedPaint, APressedTitleSinksAndAHotOneTakesTheFrameOfItsStyle) {
  OpenAt(96);
  Classic(fsDefault);
  const TRect city = Cell(CityCol, 0);
  const int x = city.Right - 4;
  grid->SetHotColumn(Column(CityCol));
  grid->SetHotTitle(true);
  grid->InvalidateTitle(nullptr);
  Paint();
  QImage image = Grab();
  EXPECT_EQ(At(image, x, city.Top), Rgb(cl3DLight)) << "the bump's raised outer edge";
  EXPECT_EQ(At(image, x, city.Top + 1), Rgb(cl3DDkShadow)) << "and its sunken inner one";
  grid->SetTitlePressed(true);
  grid->InvalidateTitle(nullptr);
  Paint();
  image = Grab();
  Snapshot(image, QStringLiteral("fixed-pressed"));
  EXPECT_EQ(At(image, x, city.Top), Rgb(cl3DDkShadow)) << "sunken";
  EXPECT_EQ(At(image, x, city.Bottom - 1), Rgb(cl3DLight));
  const TRect name = Cell(NameCol, 0);
  EXPECT_EQ(At(image, name.Right - 4, name.Top), Rgb(clBtnHighlight)) << "other titles stay raised";
}

TEST_F(FixedPaint, APressedTitlesCaptionSinksAPixelUnlessItsLookShowsThePress) {
  OpenAt(96);
  auto captionLeft = [&] { return CaptionLeft(Grab(), Cell(CityCol, 0)); };
  auto pressed = [&](bool value) {
    grid->SetHotColumn(value ? Column(CityCol) : nullptr);
    grid->SetTitlePressed(value);
    grid->InvalidateTitle(nullptr);
    Paint();
  };
  struct LookCase {
    const char* look;
    std::function<void()> set;
    int moves;
  };
  const LookCase looks[] = {
      {"classic", [&] { grid->SetDrawingStyle(gdsClassic); }, 1},
      {"gradient", [&] { grid->SetDrawingStyle(gdsGradient); }, 1},
      {"gradient with hot tracking", [&] { grid->Gradient()->SwitchOptions({goHotTrack}, true); }, 0},
      {"the system's look", [&] { grid->SetDrawingStyle(gdsThemed); }, 0},
  };
  for (const LookCase& look : looks) {
    SCOPED_TRACE(look.look);
    look.set();
    pressed(false);
    const int at = captionLeft();
    ASSERT_GE(at, 0);
    pressed(true);
    EXPECT_EQ(captionLeft(), at + look.moves);
    pressed(false);
  }
}

TEST_F(FixedPaint, AHotTitleTakesTheFrameOfHotButtonsForItsFixedStyle) {
  struct HotCase {
    THotButtons hot;
    TFixedStyle style;
    int row;  // from the title's top, or below 0 from its bottom
    TColor color;
  };
  const HotCase cases[] = {
      {hbLowered, fsDefault, 0, clBtnShadow},    {hbLowered, fsDefault, -1, clBtnHighlight},
      {hbTile, fsDefault, 1, clBtnShadow},       {hbTile, fsDefault, 2, clBtnHighlight},
      {hbRaised, fsDefault, 0, cl3DLight},       {hbRaised, fsDefault, 1, clBtnHighlight},
      {hbRaised, fsSoft, 0, cl3DLight},          {hbRaised, fsNice, -1, clBtnShadow},
      {hbRaised, fsFine, 0, cl3DLight},          {hbRaised, fsFine, -1, cl3DDkShadow},
      {hbRaised, fsMild, 0, clBtnHighlight},
  };
  OpenAt(96);
  grid->SetHotColumn(Column(CityCol));
  grid->SetHotTitle(true);
  TRect city;
  for (const HotCase& hot : cases) {
    SCOPED_TRACE(TypeInfo(TFixedStyle()).NameOf(hot.style).toStdString() + " " +
                 TypeInfo(THotButtons()).NameOf(hot.hot).toStdString() + " " + std::to_string(hot.row));
    grid->SetHotButtons(hot.hot);
    Classic(hot.style);
    grid->InvalidateTitle(nullptr);
    Paint();
    city = Cell(CityCol, 0);  // the window's frame follows the style
    const int y = hot.row >= 0 ? city.Top + hot.row : city.Bottom + hot.row;
    EXPECT_EQ(At(Grab(), city.Right - 4, y), Rgb(hot.color));
  }
  const int x = city.Right - 4;
  // fsMild's raised frame reaches over the line below the title.
  EXPECT_EQ(At(Grab(), x, city.Bottom), Rgb(clBtnShadow));
  grid->SetHotButtons(hbNone);
  grid->InvalidateTitle(nullptr);
  Paint();
  EXPECT_EQ(At(Grab(), x, city.Top), Rgb(cl3DLight)) << "hbNone leaves fsMild's own frame";
}

TEST_F(FixedPaint, AColoredFaceInAFlatStyleIsFramedInItsOwnColor) {
  OpenAt(96);
  grid->SetFixedColor(clYellow);
  for (TFixedStyle style : {fsFlat, fsGray, fsMild}) {
    SCOPED_TRACE(TypeInfo(TFixedStyle()).NameOf(style).toStdString());
    Classic(style);
    const QImage image = Grab();
    const TRect city = Cell(CityCol, 0);
    EXPECT_EQ(At(image, city.Right - 4, city.Top), clYellow);
    EXPECT_EQ(At(image, city.Left, city.Top + 3), clYellow);
  }
  Classic(fsDefault);
  const TRect city = Cell(CityCol, 0);
  EXPECT_EQ(At(Grab(), city.Right - 4, city.Top), Rgb(clBtnHighlight)) << "a raised style keeps its edges";
}

// --- Total cells

TEST_F(FixedPaint, WithoutTotalColumnLinesTheTotalCellsReadAsOne) {
  OpenAt(96);
  grid->SwitchOptionsEx({dgTotalFooter}, true);
  ASSERT_FALSE(grid->OptionsEx().Contains(dgTotalColLines));
  Classic();
  const int footer = grid->RowCount() - 1;
  const TRect name = Cell(NameCol, footer);
  const int y = (name.Top + name.Bottom) / 2;
  QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-totals"), Rect(0, name.Top - 20, image.width() / 2, image.height()));
  EXPECT_NE(At(image, name.Right, y), clBlack);
  EXPECT_NE(At(image, name.Right - 1, y), Rgb(clBtnShadow)) << "no right edge inside the run";
  grid->SwitchOptionsEx({dgTotalColLines}, true);
  Paint();
  image = Grab();
  EXPECT_EQ(At(image, name.Right, y), clBlack);
  EXPECT_EQ(At(image, name.Right - 1, y), Rgb(clBtnShadow));
  // Mirrored, Name's inner end faces City on its left.
  grid->SetBiDiMode(bdRightToLeft);
  for (bool lines : {false, true}) {
    SCOPED_TRACE(lines ? "with total column lines" : "merged");
    grid->SwitchOptionsEx({dgTotalColLines}, lines);
    Paint();
    image = Grab();
    const TRect mirrored = Cell(NameCol, footer);
    EXPECT_EQ(At(image, mirrored.Left - 1, y), lines ? clBlack : Rgb(clBtnFace));
    EXPECT_EQ(At(image, mirrored.Left - 2, y), lines ? Rgb(clBtnShadow) : Rgb(clBtnFace));
    EXPECT_EQ(At(image, mirrored.Left, y), lines ? Rgb(clBtnHighlight) : Rgb(clBtnFace));
  }
}

TEST_F(FixedPaint, TheFirstTotalRowHasALineAboveInTheFixedLineColorOfItsStyle) {
  OpenAt(96);
  grid->SwitchOptionsEx({dgTotalFooter}, true);
  const int footer = grid->RowCount() - 1;
  ASSERT_GT(grid->RowHeights(footer - 1), 0) << "the blank row shows";
  for (TFixedStyle style : {fsDefault, fsSoft, fsFine}) {
    SCOPED_TRACE(TypeInfo(TFixedStyle()).NameOf(style).toStdString());
    Classic(style);
    const TRect name = Cell(NameCol, footer);
    EXPECT_EQ(At(Grab(), name.Left + 5, name.Top - 1), Rgb(grid->GetFixedLineColor()));
  }
}

// --- Themed and gradient faces

TEST_F(FixedPaint, TheSystemsLookDrawsNoFrameAndALightLineUnderTheTitles) {
  OpenAt(96);
  ASSERT_TRUE(grid->IsSystemStyle({sseFixed}));
  Paint();
  const QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-system"));
  const TRect city = Cell(CityCol, 0);
  EXPECT_EQ(At(image, city.Right - 4, city.Bottom), RGB(229, 229, 229));
  EXPECT_NE(At(image, city.Right, (city.Top + city.Bottom) / 2), clBlack);
}

TEST_F(FixedPaint, TheSystemsSortArrowStandsAboveOrBelowAMarkersNumber) {
  OpenAt(96);
  ASSERT_TRUE(grid->IsSystemStyle({sseFixed, sseMarker}));
  const TRect city = Cell(CityCol, 0);
  auto picture = [&](int markerIndex) {
    Column(CityCol)->Title()->SetMarkerIndex(markerIndex);
    Paint();
    return Grab();
  };
  const QImage plain = picture(-1);
  // The rows of the title that differ from the title without a marker, as Top and Bottom.
  auto markedRows = [&](const QImage& image) {
    TRect rows{0, city.Bottom, 0, city.Top};
    for (int y = city.Top; y < city.Bottom; ++y)
      for (int x = city.Left; x < city.Right; ++x)
        if (image.pixel(x, y) != plain.pixel(x, y)) {
          rows.Top = std::min(rows.Top, y);
          rows.Bottom = std::max(rows.Bottom, y + 1);
        }
    return rows;
  };
  const QImage up = picture(0);
  const TRect single = markedRows(up);
  ASSERT_LT(single.Top, single.Bottom);
  EXPECT_NEAR((single.Top + single.Bottom) / 2, (city.Top + city.Bottom) / 2, 2) << "in the middle";
  EXPECT_TRUE(up != picture(1)) << "up and down differ";
  const QImage numberedUp = picture(2), numberedDown = picture(3);
  Snapshot(numberedDown, QStringLiteral("fixed-system-arrow"), Rect(city.Left, city.Top, city.Right, city.Bottom));
  const TRect first = markedRows(numberedUp), second = markedRows(numberedDown);
  EXPECT_LT(first.Top, second.Top) << "ascending: the arrow above the number";
  EXPECT_LT(first.Bottom, second.Bottom) << "descending: below it";
}

TEST_F(FixedPaint, TabsCloseTheGridsLastRowWithTheDataLine) {
  OpenAt(96, 3);
  grid->SetSystemStyleElements({});
  grid->SetFixedTheme(ftTabs);
  Paint();
  const QImage image = Grab();
  const int last = grid->RowCount() - 1;
  for (int row = 1; row <= last; ++row) {
    SCOPED_TRACE(row);
    const TRect cell = Cell(IndicatorCol, row);
    const bool line = At(image, cell.Left + 4, cell.Bottom) == Rgb(grid->DefaultDataLineColor());
    EXPECT_EQ(line, row == last);
  }
}

TEST_F(FixedPaint, TabsStandOnTheDataLineAndButtonsDifferFromTheHeader) {
  OpenAt(96);
  grid->SetSystemStyleElements({});
  grid->SetFixedTheme(ftTabs);
  Paint();
  QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-tabs"));
  const TRect city = Cell(CityCol, 0);
  EXPECT_EQ(At(image, city.Right - 4, city.Bottom), Rgb(grid->DefaultDataLineColor()));
  grid->SetFixedTheme(ftButtons);
  Paint();
  image = Grab();
  Snapshot(image, QStringLiteral("fixed-buttons"));
  EXPECT_NE(At(image, city.Right - 4, city.Bottom), Rgb(grid->DefaultDataLineColor()));
  EXPECT_NE(At(image, city.Right, (city.Top + city.Bottom) / 2), clBlack) << "no frame under a theme";
}

TEST_F(FixedPaint, UnderACustomStyleTitlesAndBandsTakeTheStylesFixedCell) {
  OpenAt(96);
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  struct TBack {
    ~TBack() { TStyleManager::SetStyle(TStyleManager::SystemStyleName()); }
  } back;
  grid->SetDrawingStyle(gdsClassic);
  Column(CityCol)->Title()->SetHeader(QStringLiteral("Where"));
  Paint();
  const QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-custom"));
  const auto element = TCustomStyleServices::GetElementDetails(tgClassicFixedCellNormal);
  TColor fill = clNone, border = clNone;
  ASSERT_TRUE(StyleServices()->GetElementColor(element, ecFillColor, fill));
  ASSERT_TRUE(StyleServices()->GetElementColor(element, ecBorderColor, border));
  const TRect city = Cell(CityCol, 0);
  const int band = grid->TitleLineHeight();
  const int x = city.Right - 4;
  EXPECT_EQ(At(image, x, city.Top + band + 3), Rgb(fill));
  EXPECT_EQ(At(image, x, city.Top + band - 1), Rgb(border)) << "the line under the band";
  EXPECT_NE(At(image, city.Right, city.Top + band + 3), clBlack) << "no frame of its own";
}

TEST_F(FixedPaint, AGradientShadesTheTitleFromTopToBottom) {
  OpenAt(96);
  grid->SetDrawingStyle(gdsGradient);
  grid->SetFixedStyle(fsDefault);
  Paint();
  const QImage image = Grab();
  Snapshot(image, QStringLiteral("fixed-gradient"));
  const TRect city = Cell(CityCol, 0);
  const int x = city.Right - 6;
  EXPECT_NE(At(image, x, city.Top + 2), At(image, x, city.Bottom - 3));
  EXPECT_EQ(At(image, x, city.Bottom), clBlack) << "the classic frame around it";
}

}  // namespace
