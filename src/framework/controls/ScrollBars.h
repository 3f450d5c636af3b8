#pragma once
// The scroll bars a window owns, with the framework's scroll bar calls. A bar shows while
// its range holds more than one page; ShowScrollBar hides or shows it until the next
// range change. The user's clicks and drags do not move a bar: they post WM_HSCROLL or
// WM_VSCROLL with the scroll code, and the control sets the new position itself.
// The flat forms are the plain ones here: there is one look of scroll bar.

#include "framework/controls/Messages.h"

namespace quil {

class TWinControl;

constexpr UINT SIF_RANGE = 0x0001;
constexpr UINT SIF_PAGE = 0x0002;
constexpr UINT SIF_POS = 0x0004;
constexpr UINT SIF_DISABLENOSCROLL = 0x0008;
constexpr UINT SIF_TRACKPOS = 0x0010;
constexpr UINT SIF_ALL = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS;

struct TScrollInfo {
  UINT cbSize = sizeof(TScrollInfo);
  UINT fMask = 0;
  int nMin = 0;
  int nMax = 0;
  UINT nPage = 0;
  int nPos = 0;
  int nTrackPos = 0;  // the thumb's place while the user drags it
};

// Properties of FlatSB_GetScrollProp / FlatSB_SetScrollProp.
constexpr int WSB_PROP_CYVSCROLL = 0x0001;
constexpr int WSB_PROP_CXHSCROLL = 0x0002;
constexpr int WSB_PROP_CYHSCROLL = 0x0004;
constexpr int WSB_PROP_CXVSCROLL = 0x0008;
constexpr int WSB_PROP_CXHTHUMB = 0x0010;
constexpr int WSB_PROP_CYVTHUMB = 0x0020;
constexpr int WSB_PROP_VBKGCOLOR = 0x0040;
constexpr int WSB_PROP_HBKGCOLOR = 0x0080;
constexpr int WSB_PROP_VSTYLE = 0x0100;
constexpr int WSB_PROP_HSTYLE = 0x0200;
constexpr int WSB_PROP_WINSTYLE = 0x0400;
constexpr int WSB_PROP_PALETTE = 0x0800;

// System metrics that the controls and grids measure with.
constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CXVSCROLL = 2;
constexpr int SM_CYHSCROLL = 3;
constexpr int SM_CXBORDER = 5;
constexpr int SM_CYBORDER = 6;
constexpr int SM_CXEDGE = 45;
constexpr int SM_CYEDGE = 46;
constexpr int SM_CXHTHUMB = 10;
constexpr int SM_CYVTHUMB = 9;
constexpr int SM_CXHSCROLL = 21;
constexpr int SM_CYVSCROLL = 20;
constexpr int SM_CXDOUBLECLK = 36;
constexpr int SM_CYDOUBLECLK = 37;
constexpr int SM_CXDRAG = 68;
constexpr int SM_CYDRAG = 69;
int GetSystemMetrics(int index);

bool GetScrollInfo(TWinControl* control, int bar, TScrollInfo& info);
// Answers the new position.
int SetScrollInfo(TWinControl* control, int bar, const TScrollInfo& info, bool redraw);
int SetScrollPos(TWinControl* control, int bar, int pos, bool redraw);
bool SetScrollRange(TWinControl* control, int bar, int minPos, int maxPos, bool redraw);
bool GetScrollRange(TWinControl* control, int bar, int& minPos, int& maxPos);
bool ShowScrollBar(TWinControl* control, int bar, bool show);

bool InitializeFlatSB(TWinControl* control);
bool FlatSB_GetScrollInfo(TWinControl* control, int bar, TScrollInfo& info);
int FlatSB_SetScrollInfo(TWinControl* control, int bar, const TScrollInfo& info, bool redraw);
int FlatSB_SetScrollPos(TWinControl* control, int bar, int pos, bool redraw);
bool FlatSB_SetScrollRange(TWinControl* control, int bar, int minPos, int maxPos, bool redraw);
bool FlatSB_GetScrollRange(TWinControl* control, int bar, int& minPos, int& maxPos);
bool FlatSB_GetScrollProp(TWinControl* control, int index, int& value);
bool FlatSB_SetScrollProp(TWinControl* control, int index, int value, bool redraw);

}  // namespace quil
