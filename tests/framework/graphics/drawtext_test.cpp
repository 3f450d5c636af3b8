#include <gtest/gtest.h>

#include "PixelProbe.h"
#include "framework/graphics/DrawText.h"

namespace quil {
namespace {

using test::CountInk;
using test::InkBounds;

const QString kSentence = QStringLiteral("The quick brown fox jumps over the lazy dog again and again");

class DrawTextTest : public ::testing::Test {
protected:
  void SetUp() override {
    test::WhiteBitmap(bitmap, 300, 200);
    canvas = bitmap.Canvas();
    canvas->Brush()->SetStyle(bsClear);
    canvas->Font()->SetColor(clBlack);
    lineHeight = canvas->TextHeight(QStringLiteral("Wg"));
  }
  TBitmap bitmap;
  TCanvas* canvas = nullptr;
  int lineHeight = 0;
};

TEST_F(DrawTextTest, CalcRectMeasuresOneLineWithoutWordBreak) {
  TRect rect = Rect(10, 10, 60, 10);
  const int height = DrawText(canvas, kSentence, -1, rect, DT_CALCRECT | DT_NOPREFIX);
  EXPECT_EQ(height, lineHeight);
  EXPECT_EQ(rect, Rect(10, 10, 10 + canvas->TextWidth(kSentence), 10 + lineHeight));
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 300, 200)), 0);
}

TEST_F(DrawTextTest, WordBreakMakesMoreLinesAndCalcRectGrows) {
  TRect rect = Rect(0, 0, 100, 0);
  const int height = DrawText(canvas, kSentence, -1, rect, DT_CALCRECT | DT_WORDBREAK);
  EXPECT_GE(height / lineHeight, 4);
  EXPECT_EQ(height % lineHeight, 0);
  EXPECT_LE(rect.Width(), 100);
  EXPECT_EQ(rect.Height(), height);
  TRect wider = Rect(0, 0, 200, 0);
  EXPECT_LT(DrawText(canvas, kSentence, -1, wider, DT_CALCRECT | DT_WORDBREAK), height);
}

TEST_F(DrawTextTest, WrappedTextDrawsOnSeveralLinesInsideItsWidth) {
  TRect rect = Rect(0, 0, 100, 200);
  DrawText(canvas, kSentence, -1, rect, DT_WORDBREAK);
  const TRect ink = InkBounds(bitmap);
  EXPECT_LE(ink.Right, 100);
  EXPECT_GT(ink.Bottom, 3 * lineHeight);
}

TEST_F(DrawTextTest, LineBreaksSplitLinesEvenWithoutWordBreak) {
  TRect rect = Rect(0, 0, 300, 0);
  EXPECT_EQ(DrawText(canvas, QStringLiteral("one\r\ntwo\nthree\rfour"), -1, rect, DT_CALCRECT), 4 * lineHeight);
  EXPECT_EQ(DrawText(canvas, QStringLiteral("one\r\ntwo"), -1, rect, DT_CALCRECT | DT_SINGLELINE), lineHeight);
}

TEST_F(DrawTextTest, LongWordStaysWholeUnlessEditControl) {
  const QString word = QStringLiteral("Supercalifragilisticexpialidocious");
  TRect rect = Rect(0, 0, 60, 0);
  EXPECT_EQ(DrawText(canvas, word, -1, rect, DT_CALCRECT | DT_WORDBREAK), lineHeight);
  EXPECT_GT(rect.Width(), 60);
  rect = Rect(0, 0, 60, 0);
  EXPECT_GE(DrawText(canvas, word, -1, rect, DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL), 3 * lineHeight);
  EXPECT_LE(rect.Width(), 60);
}

TEST_F(DrawTextTest, CjkTextBreaksBetweenCharacters) {
  const QString text = QString::fromUtf8("\xE6\xBC\xA2\xE5\xAD\x97\xE6\xBC\xA2\xE5\xAD\x97\xE6\xBC\xA2\xE5\xAD\x97"
                                         "\xE6\xBC\xA2\xE5\xAD\x97\xE6\xBC\xA2\xE5\xAD\x97");
  TRect rect = Rect(0, 0, canvas->TextWidth(text) / 3, 0);
  EXPECT_GE(DrawText(canvas, text, -1, rect, DT_CALCRECT | DT_WORDBREAK), 3 * lineHeight);
}

TEST_F(DrawTextTest, EndEllipsisKeepsTheTextInsideEvenWithoutClipping) {
  const TRect box = Rect(10, 10, 90, 10 + lineHeight);
  TRect rect = box;
  DrawText(canvas, kSentence, -1, rect, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOCLIP);
  const TRect ink = InkBounds(bitmap);
  EXPECT_GE(ink.Left, box.Left - 1) << "a glyph's edge may reach one pixel left of its origin";
  EXPECT_LE(ink.Right, box.Right);
  EXPECT_GT(CountInk(bitmap, box), 30);
  test::WhiteBitmap(bitmap, 300, 200);
  canvas->Brush()->SetStyle(bsClear);
  DrawText(canvas, kSentence, -1, rect, DT_SINGLELINE | DT_NOCLIP);
  EXPECT_GT(InkBounds(bitmap).Right, box.Right);
}

TEST_F(DrawTextTest, EllipsisOnTheLastLineThatFitsWhenWrapping) {
  const TRect box = Rect(0, 0, 100, 2 * lineHeight);
  TRect rect = box;
  DrawText(canvas, kSentence, -1, rect, DT_WORDBREAK | DT_END_ELLIPSIS | DT_NOCLIP);
  const TRect ink = InkBounds(bitmap);
  EXPECT_LE(ink.Bottom, box.Bottom);
  EXPECT_LE(ink.Right, box.Right);
  EXPECT_GT(CountInk(bitmap, Rect(0, lineHeight, 100, 2 * lineHeight)), 30);
}

TEST_F(DrawTextTest, ClippedByDefault) {
  TRect rect = Rect(10, 10, 50, 10 + lineHeight);
  DrawText(canvas, kSentence, -1, rect, DT_SINGLELINE);
  EXPECT_LE(InkBounds(bitmap).Right, 50);
}

TEST_F(DrawTextTest, AlignmentMovesTheInk) {
  const QString text = QStringLiteral("Mid");
  TRect rect = Rect(0, 0, 300, 50);
  DrawText(canvas, text, -1, rect, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
  const TRect centered = InkBounds(bitmap);
  EXPECT_NEAR((centered.Left + centered.Right) / 2, 150, 3);
  EXPECT_NEAR((centered.Top + centered.Bottom) / 2, 25, 4);
  test::WhiteBitmap(bitmap, 300, 200);
  canvas->Brush()->SetStyle(bsClear);
  DrawText(canvas, text, -1, rect, DT_SINGLELINE | DT_RIGHT | DT_BOTTOM);
  const TRect right = InkBounds(bitmap);
  EXPECT_GE(right.Left, 300 - canvas->TextWidth(text));
  EXPECT_LE(right.Bottom, 50);
  EXPECT_GT(right.Top, 50 - lineHeight - 1);
}

TEST_F(DrawTextTest, ReturnsTheBottomOfCenteredText) {
  TRect rect = Rect(0, 0, 300, 50);
  EXPECT_EQ(DrawText(canvas, QStringLiteral("x"), -1, rect, DT_SINGLELINE | DT_VCENTER),
            (50 - lineHeight) / 2 + lineHeight);
}

TEST_F(DrawTextTest, PrefixIsHiddenAndUnderlinesUnlessNoPrefix) {
  TRect withPrefix = Rect(0, 0, 300, 0);
  TRect noPrefix = withPrefix;
  DrawText(canvas, QStringLiteral("&File"), -1, withPrefix, DT_CALCRECT);
  DrawText(canvas, QStringLiteral("&File"), -1, noPrefix, DT_CALCRECT | DT_NOPREFIX);
  EXPECT_EQ(withPrefix.Width(), canvas->TextWidth(QStringLiteral("File")));
  EXPECT_EQ(noPrefix.Width(), canvas->TextWidth(QStringLiteral("&File")));
  TRect rect = Rect(0, 0, 300, 50);
  DrawText(canvas, QStringLiteral("&File"), -1, rect, DT_SINGLELINE | DT_PREFIXONLY);
  const TRect underline = InkBounds(bitmap);
  EXPECT_EQ(underline.Height(), 1);
  EXPECT_EQ(underline.Left, 0);
  EXPECT_EQ(underline.Width(), canvas->TextWidth(QStringLiteral("F")));
}

TEST_F(DrawTextTest, ExpandTabsWidensTheLine) {
  TRect tabs = Rect(0, 0, 300, 0);
  TRect plain = tabs;
  DrawText(canvas, QStringLiteral("a\tb"), -1, tabs, DT_CALCRECT | DT_EXPANDTABS);
  DrawText(canvas, QStringLiteral("a       b"), -1, plain, DT_CALCRECT);
  EXPECT_EQ(tabs.Width(), plain.Width());
}

TEST_F(DrawTextTest, CountLimitsTheCharacters) {
  TRect rect = Rect(0, 0, 300, 0);
  DrawText(canvas, QStringLiteral("abcdef"), 3, rect, DT_CALCRECT);
  EXPECT_EQ(rect.Width(), canvas->TextWidth(QStringLiteral("abc")));
}

TEST_F(DrawTextTest, TextRectFormatMapsToTheSameLayout) {
  TRect viaFormat = Rect(0, 0, 100, 0);
  TRect viaFlags = viaFormat;
  canvas->TextRect(viaFormat, kSentence, {tfCalcRect, tfWordBreak});
  DrawText(canvas, kSentence, -1, viaFlags, DT_CALCRECT | DT_WORDBREAK);
  EXPECT_EQ(viaFormat, viaFlags);
  EXPECT_EQ(TextFormatFlags({tfCenter, tfVerticalCenter, tfSingleLine, tfEndEllipsis}),
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
}

TEST_F(DrawTextTest, SolidBrushFillsBehindTheLine) {
  canvas->Brush()->SetColor(clYellow);
  TRect rect = Rect(0, 0, 300, 100);
  DrawText(canvas, QStringLiteral("Quil"), -1, rect, DT_SINGLELINE);
  EXPECT_EQ(InkBounds(bitmap), Rect(0, 0, canvas->TextWidth(QStringLiteral("Quil")), lineHeight));
}

}  // namespace
}  // namespace quil
