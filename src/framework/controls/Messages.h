#pragma once
// Window messages with the framework's numbers. A message is a number and two
// parameters; a handler writes its answer into Result. Mouse messages carry the
// button flags (MK_...) in WParam and the client point as two signed 16-bit halves
// of LParam; key messages carry the virtual-key code in WParam and the key data in
// LParam (bit 29: Alt held, bit 30: key was down before, bit 31: key going up).

#include <cstdint>

#include "framework/controls/VirtualKeys.h"
#include "framework/graphics/Types.h"
#include "framework/rtl/Sets.h"

namespace quil {

using UINT = uint32_t;
using WPARAM = uintptr_t;
using LPARAM = intptr_t;
using LRESULT = intptr_t;

struct TMessage {
  UINT Msg = 0;
  WPARAM WParam = 0;
  LPARAM LParam = 0;
  LRESULT Result = 0;
};

constexpr uint16_t LOWORD(uintptr_t value) { return uint16_t(value & 0xFFFF); }
constexpr uint16_t HIWORD(uintptr_t value) { return uint16_t((value >> 16) & 0xFFFF); }
constexpr LPARAM MAKELPARAM(int low, int high) {
  return LPARAM(uint32_t(uint16_t(low)) | (uint32_t(uint16_t(high)) << 16));
}
// The client point of a mouse message; coordinates are signed 16-bit.
constexpr TPoint LParamToPoint(LPARAM lParam) {
  return {int16_t(LOWORD(uintptr_t(lParam))), int16_t(HIWORD(uintptr_t(lParam)))};
}
constexpr LPARAM PointToLParam(TPoint point) { return MAKELPARAM(point.X, point.Y); }

// Window messages.
constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_ACTIVATE = 0x0006;
constexpr UINT WM_SETFOCUS = 0x0007;   // WParam: the TWinControl* that lost the focus, or 0
constexpr UINT WM_KILLFOCUS = 0x0008;  // WParam: the TWinControl* that gets the focus, or 0
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_SETTEXT = 0x000C;
constexpr UINT WM_GETTEXT = 0x000D;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_CANCELMODE = 0x001F;
constexpr UINT WM_SETCURSOR = 0x0020;
constexpr UINT WM_NCCALCSIZE = 0x0083;
constexpr UINT WM_NCHITTEST = 0x0084;
constexpr UINT WM_NCPAINT = 0x0085;
constexpr UINT WM_GETDLGCODE = 0x0087;
constexpr UINT WM_KEYFIRST = 0x0100;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_DEADCHAR = 0x0103;
constexpr UINT WM_SYSKEYDOWN = 0x0104;
constexpr UINT WM_SYSKEYUP = 0x0105;
constexpr UINT WM_SYSCHAR = 0x0106;
constexpr UINT WM_KEYLAST = 0x0109;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_SYSCOMMAND = 0x0112;
// An input method composes text: start, each change (LParam: GCS_COMPSTR while a
// composition shows, GCS_RESULTSTR when text is handed over), end.
constexpr UINT WM_IME_STARTCOMPOSITION = 0x010D;
constexpr UINT WM_IME_ENDCOMPOSITION = 0x010E;
constexpr UINT WM_IME_COMPOSITION = 0x010F;
constexpr LPARAM GCS_COMPSTR = 0x0008;
constexpr LPARAM GCS_RESULTSTR = 0x0800;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_HSCROLL = 0x0114;
constexpr UINT WM_VSCROLL = 0x0115;
constexpr UINT WM_MOUSEFIRST = 0x0200;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_CONTEXTMENU = 0x007B;  // LParam: the screen point
constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
constexpr UINT WM_MBUTTONDOWN = 0x0207;
constexpr UINT WM_MBUTTONUP = 0x0208;
constexpr UINT WM_MBUTTONDBLCLK = 0x0209;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_MOUSEHWHEEL = 0x020E;
constexpr UINT WM_MOUSELAST = 0x020E;
constexpr UINT WM_CAPTURECHANGED = 0x0215;
constexpr UINT WM_MOUSELEAVE = 0x02A3;
constexpr UINT WM_CUT = 0x0300;
constexpr UINT WM_COPY = 0x0301;
constexpr UINT WM_PASTE = 0x0302;
constexpr UINT WM_CLEAR = 0x0303;
constexpr UINT WM_UNDO = 0x0304;
constexpr UINT WM_USER = 0x0400;

// Edit control messages.
constexpr UINT EM_SETSEL = 0x00B1;
constexpr UINT EM_SETRECTNP = 0x00B4;
constexpr UINT EM_SCROLLCARET = 0x00B7;
constexpr UINT EM_LIMITTEXT = 0x00C5;
constexpr UINT EM_SETREADONLY = 0x00CF;
constexpr UINT EM_SETPASSWORDCHAR = 0x00CC;

// The framework's control messages.
constexpr UINT CM_BASE = 0xB000;
constexpr UINT CM_ACTIVATE = CM_BASE + 0;
constexpr UINT CM_DEACTIVATE = CM_BASE + 1;
constexpr UINT CM_GOTFOCUS = CM_BASE + 2;
constexpr UINT CM_LOSTFOCUS = CM_BASE + 3;
constexpr UINT CM_CANCELMODE = CM_BASE + 4;
constexpr UINT CM_DIALOGKEY = CM_BASE + 5;
constexpr UINT CM_DIALOGCHAR = CM_BASE + 6;
constexpr UINT CM_FOCUSCHANGED = CM_BASE + 7;
constexpr UINT CM_PARENTFONTCHANGED = CM_BASE + 8;
constexpr UINT CM_PARENTCOLORCHANGED = CM_BASE + 9;
constexpr UINT CM_HITTEST = CM_BASE + 10;
constexpr UINT CM_VISIBLECHANGED = CM_BASE + 11;
constexpr UINT CM_ENABLEDCHANGED = CM_BASE + 12;
constexpr UINT CM_COLORCHANGED = CM_BASE + 13;
constexpr UINT CM_FONTCHANGED = CM_BASE + 14;
constexpr UINT CM_CURSORCHANGED = CM_BASE + 15;
constexpr UINT CM_CTL3DCHANGED = CM_BASE + 16;
constexpr UINT CM_PARENTCTL3DCHANGED = CM_BASE + 17;
constexpr UINT CM_TEXTCHANGED = CM_BASE + 18;
constexpr UINT CM_MOUSEENTER = CM_BASE + 19;
constexpr UINT CM_MOUSELEAVE = CM_BASE + 20;
constexpr UINT CM_MENUCHANGED = CM_BASE + 21;
constexpr UINT CM_APPKEYDOWN = CM_BASE + 22;
constexpr UINT CM_APPSYSCOMMAND = CM_BASE + 23;
constexpr UINT CM_BUTTONPRESSED = CM_BASE + 24;
constexpr UINT CM_SHOWINGCHANGED = CM_BASE + 25;
constexpr UINT CM_ENTER = CM_BASE + 26;
constexpr UINT CM_EXIT = CM_BASE + 27;
constexpr UINT CM_DESIGNHITTEST = CM_BASE + 28;
constexpr UINT CM_ICONCHANGED = CM_BASE + 29;
constexpr UINT CM_WANTSPECIALKEY = CM_BASE + 30;
constexpr UINT CM_INVOKEHELP = CM_BASE + 31;
constexpr UINT CM_WINDOWHOOK = CM_BASE + 32;
constexpr UINT CM_RELEASE = CM_BASE + 33;
constexpr UINT CM_SHOWHINTCHANGED = CM_BASE + 34;
constexpr UINT CM_PARENTSHOWHINTCHANGED = CM_BASE + 35;
constexpr UINT CM_SYSCOLORCHANGE = CM_BASE + 36;
constexpr UINT CM_WININICHANGE = CM_BASE + 37;
constexpr UINT CM_FONTCHANGE = CM_BASE + 38;
constexpr UINT CM_TIMECHANGE = CM_BASE + 39;
constexpr UINT CM_TABSTOPCHANGED = CM_BASE + 40;
constexpr UINT CM_UIACTIVATE = CM_BASE + 41;
constexpr UINT CM_UIDEACTIVATE = CM_BASE + 42;
constexpr UINT CM_DOCWINDOWACTIVATE = CM_BASE + 43;
constexpr UINT CM_CONTROLLISTCHANGE = CM_BASE + 44;
constexpr UINT CM_GETDATALINK = CM_BASE + 45;
constexpr UINT CM_CHILDKEY = CM_BASE + 46;
constexpr UINT CM_DRAG = CM_BASE + 47;
constexpr UINT CM_HINTSHOW = CM_BASE + 48;
constexpr UINT CM_DIALOGHANDLE = CM_BASE + 49;
constexpr UINT CM_ISTOOLCONTROL = CM_BASE + 50;
constexpr UINT CM_RECREATEWND = CM_BASE + 51;
constexpr UINT CM_INVALIDATE = CM_BASE + 52;
constexpr UINT CM_SYSFONTCHANGED = CM_BASE + 53;
constexpr UINT CM_CONTROLCHANGE = CM_BASE + 54;
constexpr UINT CM_CHANGED = CM_BASE + 55;
constexpr UINT CM_DOCKCLIENT = CM_BASE + 56;
constexpr UINT CM_UNDOCKCLIENT = CM_BASE + 57;
constexpr UINT CM_FLOAT = CM_BASE + 58;
constexpr UINT CM_BORDERCHANGED = CM_BASE + 59;
constexpr UINT CM_BIDIMODECHANGED = CM_BASE + 60;
constexpr UINT CM_PARENTBIDIMODECHANGED = CM_BASE + 61;
constexpr UINT CM_ALLCHILDRENFLIPPED = CM_BASE + 62;
constexpr UINT CM_ACTIONUPDATE = CM_BASE + 63;
constexpr UINT CM_ACTIONEXECUTE = CM_BASE + 64;
constexpr UINT CM_HINTSHOWPAUSE = CM_BASE + 65;
constexpr UINT CM_DOCKNOTIFICATION = CM_BASE + 66;
constexpr UINT CM_MOUSEWHEEL = CM_BASE + 67;
constexpr UINT CM_ISSHORTCUT = CM_BASE + 68;
constexpr UINT CM_INVALIDATEDOCKHOST = CM_BASE + 70;
constexpr UINT CM_SETACTIVECONTROL = CM_BASE + 71;
constexpr UINT CM_POPUPHWNDDESTROY = CM_BASE + 72;
constexpr UINT CM_CREATEPOPUP = CM_BASE + 73;
constexpr UINT CM_DESTROYHANDLE = CM_BASE + 74;
constexpr UINT CM_MOUSEACTIVATE = CM_BASE + 75;
constexpr UINT CM_CONTROLLISTCHANGING = CM_BASE + 76;
constexpr UINT CM_BUFFEREDPRINTCLIENT = CM_BASE + 77;
constexpr UINT CM_UNTHEMECONTROL = CM_BASE + 78;
constexpr UINT CM_DOUBLEBUFFEREDCHANGED = CM_BASE + 79;
constexpr UINT CM_PARENTDOUBLEBUFFEREDCHANGED = CM_BASE + 80;
constexpr UINT CM_STYLECHANGED = CM_BASE + 81;
constexpr UINT CM_GESTURE = CM_BASE + 82;
constexpr UINT CM_CUSTOMGESTURESCHANGED = CM_BASE + 83;
constexpr UINT CM_GESTUREMANAGERCHANGED = CM_BASE + 84;
constexpr UINT CM_STANDARDGESTURESCHANGED = CM_BASE + 85;
constexpr UINT CM_INPUTLANGCHANGE = CM_BASE + 86;
constexpr UINT CM_TABLETOPTIONSCHANGED = CM_BASE + 87;
constexpr UINT CM_PARENTTABLETOPTIONSCHANGED = CM_BASE + 88;
constexpr UINT CM_CUSTOMSTYLECHANGED = CM_BASE + 89;

// Mouse button and key flags of a mouse message's WParam.
constexpr WPARAM MK_LBUTTON = 0x0001;
constexpr WPARAM MK_RBUTTON = 0x0002;
constexpr WPARAM MK_SHIFT = 0x0004;
constexpr WPARAM MK_CONTROL = 0x0008;
constexpr WPARAM MK_MBUTTON = 0x0010;
constexpr WPARAM MK_XBUTTON1 = 0x0020;
constexpr WPARAM MK_XBUTTON2 = 0x0040;
constexpr int WHEEL_DELTA = 120;

// Scroll bar codes of WM_HSCROLL/WM_VSCROLL (low word of WParam; the high word holds
// the thumb position of SB_THUMBPOSITION and SB_THUMBTRACK) and the bar identifiers.
constexpr int SB_LINEUP = 0;
constexpr int SB_LINELEFT = 0;
constexpr int SB_LINEDOWN = 1;
constexpr int SB_LINERIGHT = 1;
constexpr int SB_PAGEUP = 2;
constexpr int SB_PAGELEFT = 2;
constexpr int SB_PAGEDOWN = 3;
constexpr int SB_PAGERIGHT = 3;
constexpr int SB_THUMBPOSITION = 4;
constexpr int SB_THUMBTRACK = 5;
constexpr int SB_TOP = 6;
constexpr int SB_LEFT = 6;
constexpr int SB_BOTTOM = 7;
constexpr int SB_RIGHT = 7;
constexpr int SB_ENDSCROLL = 8;
constexpr int SB_HORZ = 0;
constexpr int SB_VERT = 1;
constexpr int SB_CTL = 2;
constexpr int SB_BOTH = 3;

// Answers to WM_GETDLGCODE: which keys a control keeps from dialog navigation.
constexpr LRESULT DLGC_WANTARROWS = 0x0001;
constexpr LRESULT DLGC_WANTTAB = 0x0002;
constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;
constexpr LRESULT DLGC_WANTMESSAGE = 0x0004;
constexpr LRESULT DLGC_HASSETSEL = 0x0008;
constexpr LRESULT DLGC_WANTCHARS = 0x0080;

// WM_SIZE kinds.
constexpr WPARAM SIZE_RESTORED = 0;
constexpr WPARAM SIZE_MINIMIZED = 1;
constexpr WPARAM SIZE_MAXIMIZED = 2;

// The framework's set's later members (ssHorizontal ...) are left out: their names belong to
// the scroll bar styles here.
enum TShiftStateMember { ssShift, ssAlt, ssCtrl, ssLeft, ssRight, ssMiddle, ssDouble, ssTouch, ssPen };
using TShiftState = TSet<TShiftStateMember>;

enum TMouseButton { mbLeft, mbRight, mbMiddle };

// The shift state of a mouse message's button flags, with Alt from the key state.
TShiftState KeysToShiftState(WPARAM keys);
// The shift state of a key message's key data, with Shift and Ctrl from the key state.
TShiftState KeyDataToShiftState(LPARAM keyData);
// The shift state of the keyboard and mouse buttons as of the input being handled.
TShiftState KeyboardStateToShiftState();

}  // namespace quil
