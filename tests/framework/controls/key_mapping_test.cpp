#include <gtest/gtest.h>

#include <QKeyEvent>

#include "framework/controls/KeyMapping.h"

using namespace quil;

namespace {

struct KeyCase {
  int qtKey;
  Qt::KeyboardModifiers modifiers;
  const char* text;
  uint16_t virtualKey;
  TShiftState shift;
  const char16_t* chars;
};

class KeyTranslation : public ::testing::TestWithParam<KeyCase> {};

}  // namespace

TEST_P(KeyTranslation, GivesTheFrameworkKeyShiftAndCharacters) {
  const KeyCase& c = GetParam();
  QKeyEvent event(QEvent::KeyPress, c.qtKey, c.modifiers, QString::fromUtf8(c.text));
  TKeyStroke stroke = TranslateKeyEvent(event);
  EXPECT_EQ(stroke.VirtualKey, c.virtualKey);
  EXPECT_EQ(stroke.Shift, c.shift);
  EXPECT_EQ(stroke.Chars, QString::fromUtf16(c.chars));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyTranslation,
    ::testing::Values(
        KeyCase{Qt::Key_A, Qt::NoModifier, "a", 'A', {}, u"a"},
        KeyCase{Qt::Key_A, Qt::ShiftModifier, "A", 'A', {ssShift}, u"A"},
        KeyCase{Qt::Key_C, Qt::ControlModifier, "", 'C', {ssCtrl}, u"\x03"},
        KeyCase{Qt::Key_5, Qt::NoModifier, "5", '5', {}, u"5"},
        KeyCase{Qt::Key_Exclam, Qt::ShiftModifier, "!", '1', {ssShift}, u"!"},
        KeyCase{Qt::Key_5, Qt::KeypadModifier, "5", VK_NUMPAD5, {}, u"5"},
        KeyCase{Qt::Key_Plus, Qt::KeypadModifier, "+", VK_ADD, {}, u"+"},
        KeyCase{Qt::Key_Minus, Qt::KeypadModifier, "-", VK_SUBTRACT, {}, u"-"},
        KeyCase{Qt::Key_Asterisk, Qt::KeypadModifier, "*", VK_MULTIPLY, {}, u"*"},
        KeyCase{Qt::Key_Slash, Qt::KeypadModifier, "/", VK_DIVIDE, {}, u"/"},
        KeyCase{Qt::Key_Period, Qt::KeypadModifier, ".", VK_DECIMAL, {}, u"."},
        KeyCase{Qt::Key_Minus, Qt::NoModifier, "-", VK_OEM_MINUS, {}, u"-"},
        KeyCase{Qt::Key_Return, Qt::NoModifier, "\r", VK_RETURN, {}, u"\r"},
        KeyCase{Qt::Key_Enter, Qt::KeypadModifier, "\r", VK_RETURN, {}, u"\r"},
        KeyCase{Qt::Key_Escape, Qt::NoModifier, "\x1b", VK_ESCAPE, {}, u"\x1b"},
        KeyCase{Qt::Key_Backspace, Qt::NoModifier, "\b", VK_BACK, {}, u"\b"},
        KeyCase{Qt::Key_Tab, Qt::NoModifier, "\t", VK_TAB, {}, u"\t"},
        KeyCase{Qt::Key_Backtab, Qt::ShiftModifier, "", VK_TAB, {ssShift}, u"\t"},
        KeyCase{Qt::Key_Delete, Qt::NoModifier, "\x7f", VK_DELETE, {}, u""},
        KeyCase{Qt::Key_Insert, Qt::NoModifier, "", VK_INSERT, {}, u""},
        KeyCase{Qt::Key_PageUp, Qt::NoModifier, "", VK_PRIOR, {}, u""},
        KeyCase{Qt::Key_PageDown, Qt::NoModifier, "", VK_NEXT, {}, u""},
        KeyCase{Qt::Key_End, Qt::NoModifier, "", VK_END, {}, u""},
        KeyCase{Qt::Key_Home, Qt::ControlModifier, "", VK_HOME, {ssCtrl}, u""},
        KeyCase{Qt::Key_Left, Qt::NoModifier, "", VK_LEFT, {}, u""},
        KeyCase{Qt::Key_Down, Qt::ShiftModifier, "", VK_DOWN, {ssShift}, u""},
        KeyCase{Qt::Key_F2, Qt::NoModifier, "", VK_F2, {}, u""},
        KeyCase{Qt::Key_F12, Qt::AltModifier, "", VK_F12, {ssAlt}, u""},
        KeyCase{Qt::Key_Space, Qt::NoModifier, " ", VK_SPACE, {}, u" "},
        KeyCase{Qt::Key_Adiaeresis, Qt::NoModifier, "\xc3\xa4", VK_PACKET, {}, u"\u00e4"}));

TEST(KeyTranslation, AltMakesSystemKeysAndSetsTheContextBit) {
  QKeyEvent event(QEvent::KeyPress, Qt::Key_X, Qt::AltModifier, QStringLiteral("x"));
  TKeyStroke stroke = TranslateKeyEvent(event);
  EXPECT_TRUE(stroke.System);
  EXPECT_NE(stroke.KeyData & (LPARAM(1) << 29), 0);
  QKeyEvent altGr(QEvent::KeyPress, Qt::Key_Q, Qt::AltModifier | Qt::ControlModifier, QStringLiteral("@"));
  EXPECT_FALSE(TranslateKeyEvent(altGr).System);
}

TEST(KeyTranslation, ArrowsAreExtendedKeysAndReleasesSetTheTransitionBit) {
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
  EXPECT_NE(TranslateKeyEvent(press).KeyData & (LPARAM(1) << 24), 0);
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_Up, Qt::NoModifier);
  EXPECT_NE(uint32_t(TranslateKeyEvent(release).KeyData) & (1u << 31), 0u);
  QKeyEvent letter(QEvent::KeyPress, Qt::Key_B, Qt::NoModifier, QStringLiteral("b"));
  EXPECT_EQ(TranslateKeyEvent(letter).KeyData & (LPARAM(1) << 24), 0);
}

TEST(KeyState, FollowsTheRecordedInputEvent) {
  QKeyEvent shifted(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier | Qt::ControlModifier);
  RecordInputState(shifted);
  EXPECT_LT(GetKeyState(VK_SHIFT), 0);
  EXPECT_LT(GetKeyState(VK_CONTROL), 0);
  EXPECT_GE(GetKeyState(VK_MENU), 0);
  EXPECT_EQ(KeyboardStateToShiftState(), (TShiftState{ssShift, ssCtrl}));
  EXPECT_EQ(KeysToShiftState(MK_LBUTTON | MK_SHIFT), (TShiftState{ssShift, ssLeft}));
  QKeyEvent plain(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
  RecordInputState(plain);
  EXPECT_GE(GetKeyState(VK_SHIFT), 0);
  EXPECT_EQ(KeyDataToShiftState(LPARAM(1) << 29), (TShiftState{ssAlt}));
}
