#include <gtest/gtest.h>

#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Brush.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Font.h"
#include "framework/graphics/Font_p.h"
#include "framework/graphics/Pen.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/TypInfo.h"

namespace quil {
namespace {

// Counts OnChange calls of a graphics object.
struct ChangeCounter {
  int count = 0;
  void Changed(TObject*) { ++count; }
  TNotifyEvent Handler() { return TNotifyEvent(this, &ChangeCounter::Changed); }
};

TEST(TFont, DefaultsToDejaVuSansNinePoints) {
  TFont font;
  EXPECT_EQ(font.Name(), QStringLiteral("DejaVu Sans"));
  EXPECT_EQ(font.Size(), 9);
  EXPECT_EQ(font.Height(), -12);
  EXPECT_EQ(font.PixelsPerInch(), 96);
  EXPECT_EQ(font.Color(), clWindowText);
  EXPECT_TRUE(font.Style().Empty());
}

TEST(TFont, SizeAndHeightFollowEachOther) {
  TFont font;
  font.SetSize(10);
  EXPECT_EQ(font.Height(), -13);
  font.SetHeight(-16);
  EXPECT_EQ(font.Size(), 12);
  font.SetHeight(-11);
  EXPECT_EQ(font.Size(), 8);
}

TEST(TFont, ResolutionChangeKeepsPointsAndScalesPixels) {
  TFont font;
  font.SetPixelsPerInch(144);
  EXPECT_EQ(font.Size(), 9);
  EXPECT_EQ(font.Height(), -18);
  font.SetSize(8);
  EXPECT_EQ(font.Height(), -16);
}

TEST(TFont, OnChangeFiresOncePerRealChange) {
  TFont font;
  ChangeCounter counter;
  font.SetOnChange(counter.Handler());
  font.SetSize(9);
  font.SetName(font.Name());
  font.SetColor(font.Color());
  EXPECT_EQ(counter.count, 0);
  font.SetStyle({fsBold});
  font.SetColor(clRed);
  font.SetSize(11);
  EXPECT_EQ(counter.count, 3);
}

TEST(TFont, AssignCopiesEverythingAndFiresOnce) {
  TFont source;
  source.SetName(QStringLiteral("DejaVu Serif"));
  source.SetSize(14);
  source.SetColor(clNavy);
  source.SetStyle({fsItalic, fsUnderline});
  source.SetPitch(fpFixed);
  source.SetOrientation(900);
  TFont target;
  ChangeCounter counter;
  target.SetOnChange(counter.Handler());
  target.Assign(&source);
  EXPECT_EQ(counter.count, 1);
  EXPECT_TRUE(target.IsEqual(source));
  EXPECT_EQ(target.Color(), clNavy);
  EXPECT_EQ(target.Size(), 14);
}

TEST(TFont, AssignFromAnotherResolutionKeepsPoints) {
  TFont source;
  source.SetPixelsPerInch(192);
  source.SetSize(10);
  TFont target;
  target.Assign(&source);
  EXPECT_EQ(target.Size(), 10);
  EXPECT_EQ(target.Height(), -13);
}

TEST(TFont, AssignFromBrushRaises) {
  TFont font;
  TBrush brush;
  EXPECT_THROW(font.Assign(&brush), EConvertError);
}

TEST(TFont, QtFontFollowsTheFontAfterAChange) {
  TFont font;
  EXPECT_EQ(TFontPrivate::QtFont(font).pixelSize(), 12);
  EXPECT_FALSE(TFontPrivate::QtFont(font).bold());
  font.SetStyle({fsBold, fsStrikeOut});
  font.SetHeight(-20);
  EXPECT_EQ(TFontPrivate::QtFont(font).pixelSize(), 20);
  EXPECT_TRUE(TFontPrivate::QtFont(font).bold());
  EXPECT_TRUE(TFontPrivate::QtFont(font).strikeOut());
  EXPECT_FALSE(TFontPrivate::QtFont(font).italic());
}

TEST(TFont, PositiveHeightIsTheCellHeight) {
  TFont font;
  font.SetHeight(20);
  TBitmap bitmap;
  bitmap.Canvas()->Font()->Assign(&font);
  EXPECT_NEAR(bitmap.Canvas()->TextHeight(QStringLiteral("Wg")), 20, 1);
  EXPECT_LT(TFontPrivate::QtFont(font).pixelSize(), 20);
}

TEST(TFont, CanvasMeasuresWithItsFont) {
  TBitmap bitmap;
  TCanvas* canvas = bitmap.Canvas();
  const int small = canvas->TextWidth(QStringLiteral("Hello, world"));
  const int smallHeight = canvas->TextHeight(QStringLiteral("Hello"));
  canvas->Font()->SetSize(18);
  EXPECT_GT(canvas->TextWidth(QStringLiteral("Hello, world")), small * 3 / 2);
  EXPECT_GT(canvas->TextHeight(QStringLiteral("Hello")), smallHeight * 3 / 2);
  const int regular = canvas->TextWidth(QStringLiteral("Hello, world"));
  canvas->Font()->SetStyle({fsBold});
  EXPECT_GT(canvas->TextWidth(QStringLiteral("Hello, world")), regular);
  EXPECT_EQ(canvas->TextExtent(QStringLiteral("abc")).cx, canvas->TextWidth(QStringLiteral("abc")));
}

TEST(TBrush, SettingAColorMakesAClearBrushSolid) {
  TBrush brush;
  brush.SetStyle(bsClear);
  brush.SetColor(clRed);
  EXPECT_EQ(brush.Style(), bsSolid);
  EXPECT_EQ(brush.Color(), clRed);
}

TEST(TPen, AssignCopiesAllFourProperties) {
  TPen source;
  source.SetColor(clRed);
  source.SetWidth(3);
  source.SetStyle(psDot);
  source.SetMode(pmXor);
  TPen target;
  ChangeCounter counter;
  target.SetOnChange(counter.Handler());
  target.Assign(&source);
  EXPECT_EQ(counter.count, 1);
  EXPECT_EQ(target.Color(), clRed);
  EXPECT_EQ(target.Width(), 3);
  EXPECT_EQ(target.Style(), psDot);
  EXPECT_EQ(target.Mode(), pmXor);
}

// Height carries the size in streams; Size itself is not stored.
TEST(TFont, PublishesItsPropertiesForStreams) {
  TFont font;
  font.SetColor(clRed);
  font.SetStyle({fsBold, fsItalic});
  EXPECT_EQ(GetOrdProp(&font, "Color"), clRed);
  EXPECT_EQ(GetSetProp(&font, "Style"), QStringLiteral("fsBold,fsItalic"));
  EXPECT_EQ(GetPropValue(&font, "Charset").AsInteger(), DEFAULT_CHARSET);
  EXPECT_FALSE(IsStoredProp(&font, "Size"));
  EXPECT_TRUE(IsStoredProp(&font, "Height"));
  SetPropValue(&font, "Height", Variant(-20));
  EXPECT_EQ(font.Height(), -20);
  SetEnumProp(&font, "Pitch", "fpFixed");
  EXPECT_EQ(font.Pitch(), fpFixed);
  const auto* color = GetPropInfo(&font, "Color");
  const auto& type = dynamic_cast<const TIntegerTypeInfo&>(color->PropType());
  EXPECT_EQ(type.IdentToInt("clWindowText"), std::optional<int64_t>(clWindowText));
  EXPECT_EQ(CharsetTypeInfo().IntToIdent(DEFAULT_CHARSET), std::optional<QString>("DEFAULT_CHARSET"));
}

}  // namespace
}  // namespace quil
