#include "framework/controls/KeyMapping.h"

#include <QKeyEvent>
#include <utility>

namespace quil {

namespace {

// The US layout's key for each symbol: the unshifted key of a shifted symbol.
constexpr std::pair<int, uint16_t> kSymbolKeys[] = {
    {Qt::Key_Exclam, '1'}, {Qt::Key_At, '2'}, {Qt::Key_NumberSign, '3'},
    {Qt::Key_Dollar, '4'}, {Qt::Key_Percent, '5'}, {Qt::Key_AsciiCircum, '6'},
    {Qt::Key_Ampersand, '7'}, {Qt::Key_Asterisk, '8'}, {Qt::Key_ParenLeft, '9'},
    {Qt::Key_ParenRight, '0'}, {Qt::Key_Semicolon, VK_OEM_1}, {Qt::Key_Colon, VK_OEM_1},
    {Qt::Key_Equal, VK_OEM_PLUS}, {Qt::Key_Plus, VK_OEM_PLUS}, {Qt::Key_Comma, VK_OEM_COMMA},
    {Qt::Key_Less, VK_OEM_COMMA}, {Qt::Key_Minus, VK_OEM_MINUS}, {Qt::Key_Underscore, VK_OEM_MINUS},
    {Qt::Key_Period, VK_OEM_PERIOD}, {Qt::Key_Greater, VK_OEM_PERIOD}, {Qt::Key_Slash, VK_OEM_2},
    {Qt::Key_Question, VK_OEM_2}, {Qt::Key_QuoteLeft, VK_OEM_3}, {Qt::Key_AsciiTilde, VK_OEM_3},
    {Qt::Key_BracketLeft, VK_OEM_4}, {Qt::Key_BraceLeft, VK_OEM_4}, {Qt::Key_Backslash, VK_OEM_5},
    {Qt::Key_Bar, VK_OEM_5}, {Qt::Key_BracketRight, VK_OEM_6}, {Qt::Key_BraceRight, VK_OEM_6},
    {Qt::Key_Apostrophe, VK_OEM_7}, {Qt::Key_QuoteDbl, VK_OEM_7},
};

constexpr std::pair<int, uint16_t> kNamedKeys[] = {
    {Qt::Key_Space, VK_SPACE}, {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_Tab, VK_TAB},
    {Qt::Key_Backtab, VK_TAB}, {Qt::Key_Backspace, VK_BACK}, {Qt::Key_Return, VK_RETURN},
    {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Insert, VK_INSERT}, {Qt::Key_Delete, VK_DELETE},
    {Qt::Key_Pause, VK_PAUSE}, {Qt::Key_Print, VK_SNAPSHOT}, {Qt::Key_Clear, VK_CLEAR},
    {Qt::Key_Home, VK_HOME}, {Qt::Key_End, VK_END}, {Qt::Key_Help, VK_HELP},
    {Qt::Key_Left, VK_LEFT}, {Qt::Key_Up, VK_UP}, {Qt::Key_Right, VK_RIGHT},
    {Qt::Key_Down, VK_DOWN}, {Qt::Key_PageUp, VK_PRIOR}, {Qt::Key_PageDown, VK_NEXT},
    {Qt::Key_Shift, VK_SHIFT}, {Qt::Key_Control, VK_CONTROL}, {Qt::Key_Alt, VK_MENU},
    {Qt::Key_AltGr, VK_RMENU}, {Qt::Key_Meta, VK_LWIN}, {Qt::Key_Super_L, VK_LWIN},
    {Qt::Key_Super_R, VK_RWIN}, {Qt::Key_Menu, VK_APPS}, {Qt::Key_CapsLock, VK_CAPITAL},
    {Qt::Key_NumLock, VK_NUMLOCK}, {Qt::Key_ScrollLock, VK_SCROLL}, {Qt::Key_Cancel, VK_CANCEL},
    {Qt::Key_Select, VK_SELECT},
};

uint16_t KeypadKey(int qtKey) {
  if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return uint16_t(VK_NUMPAD0 + (qtKey - Qt::Key_0));
  switch (qtKey) {
    case Qt::Key_Asterisk: return VK_MULTIPLY;
    case Qt::Key_Plus: return VK_ADD;
    case Qt::Key_Minus: return VK_SUBTRACT;
    case Qt::Key_Slash: return VK_DIVIDE;
    case Qt::Key_Period:
    case Qt::Key_Comma: return VK_DECIMAL;
    default: return 0;
  }
}

template <size_t N>
uint16_t Lookup(const std::pair<int, uint16_t> (&table)[N], int qtKey) {
  for (const auto& [key, code] : table)
    if (key == qtKey) return code;
  return 0;
}

// Keys that the framework's keyboard reports with the extended-key bit.
bool IsExtendedKey(uint16_t virtualKey, bool keypad) {
  switch (virtualKey) {
    case VK_PRIOR: case VK_NEXT: case VK_END: case VK_HOME: case VK_LEFT: case VK_UP:
    case VK_RIGHT: case VK_DOWN: case VK_INSERT: case VK_DELETE: case VK_DIVIDE:
    case VK_RCONTROL: case VK_RMENU: case VK_NUMLOCK:
      return true;
    case VK_RETURN: return keypad;
    default: return false;
  }
}

// What WM_CHAR delivers: Ctrl with a letter gives the control character, keys that
// edit or move give none, the rest is the text Qt composed.
QString CharsOf(const QKeyEvent& event, uint16_t virtualKey, TShiftState shift) {
  if (shift.Contains(ssCtrl) && !shift.Contains(ssAlt)) {
    if (virtualKey >= 'A' && virtualKey <= 'Z') return QString(QChar(virtualKey - 'A' + 1));
    if (virtualKey == VK_OEM_4) return QString(QChar(0x1B));
    if (virtualKey == VK_RETURN) return QString(QChar(0x0A));
    return {};
  }
  switch (virtualKey) {
    case VK_RETURN: return QString(QChar(0x0D));
    case VK_ESCAPE: return QString(QChar(0x1B));
    case VK_BACK: return QString(QChar(0x08));
    case VK_TAB: return QString(QChar(0x09));
    case VK_DELETE: return {};
    default: break;
  }
  QString text = event.text();
  if (text.size() == 1 && text[0].unicode() < 0x20) return {};
  return text;
}

struct InputState {
  Qt::KeyboardModifiers modifiers;
  Qt::MouseButtons buttons;
  QPoint globalPos;
};
thread_local InputState inputState;

}  // namespace

uint16_t QtKeyToVirtualKey(int qtKey, bool keypad) {
  if (keypad) {
    if (uint16_t code = KeypadKey(qtKey)) return code;
  }
  if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return uint16_t('A' + (qtKey - Qt::Key_A));
  if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return uint16_t('0' + (qtKey - Qt::Key_0));
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return uint16_t(VK_F1 + (qtKey - Qt::Key_F1));
  if (uint16_t code = Lookup(kNamedKeys, qtKey)) return code;
  if (uint16_t code = Lookup(kSymbolKeys, qtKey)) return code;
  return 0;
}

TKeyStroke TranslateKeyEvent(const QKeyEvent& event) {
  TKeyStroke stroke;
  Qt::KeyboardModifiers modifiers = event.modifiers();
  bool keypad = modifiers.testFlag(Qt::KeypadModifier);
  stroke.VirtualKey = QtKeyToVirtualKey(event.key(), keypad);
  if (modifiers.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab) stroke.Shift += ssShift;
  if (modifiers.testFlag(Qt::ControlModifier)) stroke.Shift += ssCtrl;
  if (modifiers.testFlag(Qt::AltModifier)) stroke.Shift += ssAlt;
  stroke.System = stroke.Shift.Contains(ssAlt) && !stroke.Shift.Contains(ssCtrl);
  stroke.Chars = CharsOf(event, stroke.VirtualKey, stroke.Shift);
  // A character no key gives still needs a key message; the framework's input sends these.
  if (stroke.VirtualKey == 0 && !stroke.Chars.isEmpty()) stroke.VirtualKey = VK_PACKET;

  uint32_t data = 1u | ((event.nativeScanCode() & 0xFFu) << 16);
  if (IsExtendedKey(stroke.VirtualKey, keypad)) data |= 1u << 24;
  if (stroke.Shift.Contains(ssAlt)) data |= 1u << 29;
  if (event.isAutoRepeat()) data |= 1u << 30;
  if (event.type() == QEvent::KeyRelease) data |= (1u << 30) | (1u << 31);
  stroke.KeyData = LPARAM(int32_t(data));
  return stroke;
}

void RecordInputState(const QInputEvent& event) {
  inputState.modifiers = event.modifiers();
  if (event.isSinglePointEvent()) {
    const auto& pointer = static_cast<const QSinglePointEvent&>(event);
    inputState.buttons = pointer.buttons();
    inputState.globalPos = pointer.globalPosition().toPoint();
  }
}

short GetKeyState(int virtualKey) {
  bool down = false;
  switch (virtualKey) {
    case VK_SHIFT: case VK_LSHIFT: case VK_RSHIFT:
      down = inputState.modifiers.testFlag(Qt::ShiftModifier); break;
    case VK_CONTROL: case VK_LCONTROL: case VK_RCONTROL:
      down = inputState.modifiers.testFlag(Qt::ControlModifier); break;
    case VK_MENU: case VK_LMENU: case VK_RMENU:
      down = inputState.modifiers.testFlag(Qt::AltModifier); break;
    case VK_LBUTTON: down = inputState.buttons.testFlag(Qt::LeftButton); break;
    case VK_RBUTTON: down = inputState.buttons.testFlag(Qt::RightButton); break;
    case VK_MBUTTON: down = inputState.buttons.testFlag(Qt::MiddleButton); break;
    default: break;
  }
  return down ? short(-128) : short(0);
}

TPoint GetMessagePos() { return Point(inputState.globalPos.x(), inputState.globalPos.y()); }

TShiftState KeysToShiftState(WPARAM keys) {
  TShiftState shift;
  if (keys & MK_SHIFT) shift += ssShift;
  if (keys & MK_CONTROL) shift += ssCtrl;
  if (keys & MK_LBUTTON) shift += ssLeft;
  if (keys & MK_RBUTTON) shift += ssRight;
  if (keys & MK_MBUTTON) shift += ssMiddle;
  if (GetKeyState(VK_MENU) < 0) shift += ssAlt;
  return shift;
}

TShiftState KeyDataToShiftState(LPARAM keyData) {
  TShiftState shift;
  if (GetKeyState(VK_SHIFT) < 0) shift += ssShift;
  if (GetKeyState(VK_CONTROL) < 0) shift += ssCtrl;
  if (keyData & (LPARAM(1) << 29)) shift += ssAlt;
  return shift;
}

TShiftState KeyboardStateToShiftState() {
  TShiftState shift;
  if (GetKeyState(VK_SHIFT) < 0) shift += ssShift;
  if (GetKeyState(VK_CONTROL) < 0) shift += ssCtrl;
  if (GetKeyState(VK_MENU) < 0) shift += ssAlt;
  if (GetKeyState(VK_LBUTTON) < 0) shift += ssLeft;
  if (GetKeyState(VK_RBUTTON) < 0) shift += ssRight;
  if (GetKeyState(VK_MBUTTON) < 0) shift += ssMiddle;
  return shift;
}

}  // namespace quil
