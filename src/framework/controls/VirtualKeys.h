#pragma once
// Virtual-key codes with the framework's numbers. Letters and digits are their upper-case
// ASCII codes: 'A' .. 'Z', '0' .. '9'.

#include <cstdint>

namespace quil {

constexpr uint16_t VK_LBUTTON = 0x01;
constexpr uint16_t VK_RBUTTON = 0x02;
constexpr uint16_t VK_CANCEL = 0x03;
constexpr uint16_t VK_MBUTTON = 0x04;
constexpr uint16_t VK_BACK = 0x08;
constexpr uint16_t VK_TAB = 0x09;
constexpr uint16_t VK_CLEAR = 0x0C;
constexpr uint16_t VK_RETURN = 0x0D;
constexpr uint16_t VK_SHIFT = 0x10;
constexpr uint16_t VK_CONTROL = 0x11;
constexpr uint16_t VK_MENU = 0x12;
constexpr uint16_t VK_PAUSE = 0x13;
constexpr uint16_t VK_CAPITAL = 0x14;
constexpr uint16_t VK_ESCAPE = 0x1B;
constexpr uint16_t VK_SPACE = 0x20;
constexpr uint16_t VK_PRIOR = 0x21;
constexpr uint16_t VK_NEXT = 0x22;
constexpr uint16_t VK_END = 0x23;
constexpr uint16_t VK_HOME = 0x24;
constexpr uint16_t VK_LEFT = 0x25;
constexpr uint16_t VK_UP = 0x26;
constexpr uint16_t VK_RIGHT = 0x27;
constexpr uint16_t VK_DOWN = 0x28;
constexpr uint16_t VK_SELECT = 0x29;
constexpr uint16_t VK_PRINT = 0x2A;
constexpr uint16_t VK_EXECUTE = 0x2B;
constexpr uint16_t VK_SNAPSHOT = 0x2C;
constexpr uint16_t VK_INSERT = 0x2D;
constexpr uint16_t VK_DELETE = 0x2E;
constexpr uint16_t VK_HELP = 0x2F;
constexpr uint16_t VK_LWIN = 0x5B;
constexpr uint16_t VK_RWIN = 0x5C;
constexpr uint16_t VK_APPS = 0x5D;
constexpr uint16_t VK_NUMPAD0 = 0x60;
constexpr uint16_t VK_NUMPAD1 = 0x61;
constexpr uint16_t VK_NUMPAD2 = 0x62;
constexpr uint16_t VK_NUMPAD3 = 0x63;
constexpr uint16_t VK_NUMPAD4 = 0x64;
constexpr uint16_t VK_NUMPAD5 = 0x65;
constexpr uint16_t VK_NUMPAD6 = 0x66;
constexpr uint16_t VK_NUMPAD7 = 0x67;
constexpr uint16_t VK_NUMPAD8 = 0x68;
constexpr uint16_t VK_NUMPAD9 = 0x69;
constexpr uint16_t VK_MULTIPLY = 0x6A;
constexpr uint16_t VK_ADD = 0x6B;
constexpr uint16_t VK_SEPARATOR = 0x6C;
constexpr uint16_t VK_SUBTRACT = 0x6D;
constexpr uint16_t VK_DECIMAL = 0x6E;
constexpr uint16_t VK_DIVIDE = 0x6F;
constexpr uint16_t VK_F1 = 0x70;
constexpr uint16_t VK_F2 = 0x71;
constexpr uint16_t VK_F3 = 0x72;
constexpr uint16_t VK_F4 = 0x73;
constexpr uint16_t VK_F5 = 0x74;
constexpr uint16_t VK_F6 = 0x75;
constexpr uint16_t VK_F7 = 0x76;
constexpr uint16_t VK_F8 = 0x77;
constexpr uint16_t VK_F9 = 0x78;
constexpr uint16_t VK_F10 = 0x79;
constexpr uint16_t VK_F11 = 0x7A;
constexpr uint16_t VK_F12 = 0x7B;
constexpr uint16_t VK_F24 = 0x87;
constexpr uint16_t VK_NUMLOCK = 0x90;
constexpr uint16_t VK_SCROLL = 0x91;
constexpr uint16_t VK_LSHIFT = 0xA0;
constexpr uint16_t VK_RSHIFT = 0xA1;
constexpr uint16_t VK_LCONTROL = 0xA2;
constexpr uint16_t VK_RCONTROL = 0xA3;
constexpr uint16_t VK_LMENU = 0xA4;
constexpr uint16_t VK_RMENU = 0xA5;
constexpr uint16_t VK_OEM_1 = 0xBA;       // ;:
constexpr uint16_t VK_OEM_PLUS = 0xBB;    // =+
constexpr uint16_t VK_OEM_COMMA = 0xBC;   // ,<
constexpr uint16_t VK_OEM_MINUS = 0xBD;   // -_
constexpr uint16_t VK_OEM_PERIOD = 0xBE;  // .>
constexpr uint16_t VK_OEM_2 = 0xBF;       // /?
constexpr uint16_t VK_OEM_3 = 0xC0;       // `~
constexpr uint16_t VK_OEM_4 = 0xDB;       // [{
constexpr uint16_t VK_OEM_5 = 0xDC;       // \|
constexpr uint16_t VK_OEM_6 = 0xDD;       // ]}
constexpr uint16_t VK_OEM_7 = 0xDE;       // '"
constexpr uint16_t VK_PROCESSKEY = 0xE5;
// A character that no key of the US layout gives; it arrives as WM_CHAR only.
constexpr uint16_t VK_PACKET = 0xE7;

}  // namespace quil
