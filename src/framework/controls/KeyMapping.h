#pragma once
// Qt's key events as the framework's key messages: a virtual-key code, key data, the shift
// state and the characters that WM_CHAR (or WM_SYSCHAR) delivers one UTF-16 unit at a
// time. The key state (GetKeyState) is that of the input event being handled, as the
// framework call answers for the message being handled.

#include <QString>

#include "framework/controls/Messages.h"

class QInputEvent;
class QKeyEvent;

namespace quil {

struct TKeyStroke {
  uint16_t VirtualKey = 0;
  LPARAM KeyData = 0;  // a key message's LParam
  TShiftState Shift;
  bool System = false;  // Alt without Ctrl: WM_SYSKEYDOWN and WM_SYSCHAR
  QString Chars;
};

// keypad: the key came from the numeric keypad (Qt::KeypadModifier).
uint16_t QtKeyToVirtualKey(int qtKey, bool keypad);
TKeyStroke TranslateKeyEvent(const QKeyEvent& event);

// Records the modifiers and mouse buttons of the input event about to be dispatched.
void RecordInputState(const QInputEvent& event);
// Negative while the key or button is down, as the framework's call answers.
short GetKeyState(int virtualKey);
// The screen point of the mouse at the input event being handled.
TPoint GetMessagePos();

}  // namespace quil
