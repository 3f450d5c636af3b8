#include "framework/controls/ScrollBars.h"

#include <QApplication>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>

#include "framework/controls/Controls.h"
#include "framework/controls/Controls_p.h"
#include "framework/controls/MessageQueue.h"

namespace quil {

namespace {

// The highest position the framework's bar takes: the last page starts there.
int MaxPosition(const TScrollInfo& info) {
  int page = int(info.nPage);
  return std::max(info.nMin, page > 0 ? info.nMax - page + 1 : info.nMax);
}

bool HasRange(const TScrollInfo& info) {
  return info.nPage == 0 ? info.nMax > info.nMin : info.nMax - info.nMin + 1 > int(info.nPage);
}

TWindowScrollBar* BarOf(TWinControl* control, int bar) {
  if (!control || (bar != SB_HORZ && bar != SB_VERT)) return nullptr;
  return &control->Private()->ScrollBar(bar);
}

}  // namespace

int GetSystemMetrics(int index) {
  QStyle* style = QApplication::style();
  switch (index) {
    case SM_CXSCREEN:
    case SM_CYSCREEN: {
      QScreen* screen = QGuiApplication::primaryScreen();
      if (!screen) return 0;
      return index == SM_CXSCREEN ? screen->geometry().width() : screen->geometry().height();
    }
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CXHSCROLL:
    case SM_CYVSCROLL:
      return style->pixelMetric(QStyle::PM_ScrollBarExtent);
    case SM_CXHTHUMB:
    case SM_CYVTHUMB:
      return style->pixelMetric(QStyle::PM_ScrollBarSliderMin);
    case SM_CXBORDER:
    case SM_CYBORDER: return 1;
    case SM_CXEDGE:
    case SM_CYEDGE: return 2;
    case SM_CXDOUBLECLK:
    case SM_CYDOUBLECLK: return 4;
    case SM_CXDRAG:
    case SM_CYDRAG: return QApplication::startDragDistance();
    default: return 0;
  }
}

QScrollBar* TWinControlPrivate::EnsureScrollBar(int bar) {
  TWindowScrollBar& state = bars_[size_t(bar)];
  if (state.bar || !Widget()) return state.bar;
  state.bar = new QScrollBar(bar == SB_HORZ ? Qt::Horizontal : Qt::Vertical, Widget());
  state.bar->setFocusPolicy(Qt::NoFocus);
  state.bar->setVisible(false);
  QObject::connect(state.bar, &QAbstractSlider::actionTriggered, state.bar,
                   [this, bar](int action) { ScrollBarAction(bar, action); });
  QObject::connect(state.bar, &QAbstractSlider::sliderReleased, state.bar,
                   [this, bar] { ScrollBarReleased(bar); });
  return state.bar;
}

void TWinControlPrivate::ScrollBarAction(int bar, int action) {
  TWindowScrollBar& state = bars_[size_t(bar)];
  int code = -1;
  switch (action) {
    case QAbstractSlider::SliderSingleStepAdd: code = SB_LINEDOWN; break;
    case QAbstractSlider::SliderSingleStepSub: code = SB_LINEUP; break;
    case QAbstractSlider::SliderPageStepAdd: code = SB_PAGEDOWN; break;
    case QAbstractSlider::SliderPageStepSub: code = SB_PAGEUP; break;
    case QAbstractSlider::SliderToMinimum: code = SB_TOP; break;
    case QAbstractSlider::SliderToMaximum: code = SB_BOTTOM; break;
    case QAbstractSlider::SliderMove: code = SB_THUMBTRACK; break;
    default: return;
  }
  UINT msg = bar == SB_HORZ ? WM_HSCROLL : WM_VSCROLL;
  if (code == SB_THUMBTRACK) {
    state.info.nTrackPos = state.bar->sliderPosition();
    PostMessage(control_, msg, WPARAM(code) | (WPARAM(uint16_t(state.info.nTrackPos)) << 16), 0);
    return;
  }
  // The bar moves only when the control sets a new position in answer.
  state.bar->setSliderPosition(state.info.nPos);
  PostMessage(control_, msg, WPARAM(code), 0);
  PostMessage(control_, msg, WPARAM(SB_ENDSCROLL), 0);
}

void TWinControlPrivate::ScrollBarReleased(int bar) {
  TWindowScrollBar& state = bars_[size_t(bar)];
  UINT msg = bar == SB_HORZ ? WM_HSCROLL : WM_VSCROLL;
  state.info.nTrackPos = state.bar->sliderPosition();
  PostMessage(control_, msg, WPARAM(SB_THUMBPOSITION) | (WPARAM(uint16_t(state.info.nTrackPos)) << 16), 0);
  PostMessage(control_, msg, WPARAM(SB_ENDSCROLL), 0);
}

void TWinControlPrivate::ApplyScrollInfo(int bar, bool redraw) {
  TWindowScrollBar& state = bars_[size_t(bar)];
  if (QScrollBar* scrollBar = EnsureScrollBar(bar)) {
    QSignalBlocker blocker(scrollBar);
    scrollBar->setRange(state.info.nMin, MaxPosition(state.info));
    scrollBar->setPageStep(std::max(int(state.info.nPage), 1));
    scrollBar->setValue(state.info.nPos);
    if (redraw) scrollBar->update();
  }
  SetScrollBarShown(bar, HasRange(state.info));
}

void TWinControlPrivate::SetScrollBarShown(int bar, bool shown) {
  TWindowScrollBar& state = bars_[size_t(bar)];
  if (state.shown == shown || !EnsureScrollBar(bar)) return;
  state.shown = shown;
  state.bar->setVisible(shown);
  // A bar takes its room from the client area, and the control hears of the new size.
  RecalcClientArea();
  control_->Perform(WM_SIZE, SIZE_RESTORED, MAKELPARAM(control_->ClientWidth(), control_->ClientHeight()));
}

void TWinControlPrivate::LayoutScrollBars() {
  TWindowScrollBar& horz = bars_[SB_HORZ];
  TWindowScrollBar& vert = bars_[SB_VERT];
  if (vert.shown) {
    int width = GetSystemMetrics(SM_CXVSCROLL);
    int left = control_->UseRightToLeftScrollBar() ? clientArea_.Left - width : clientArea_.Right;
    vert.bar->setGeometry(left, clientArea_.Top, width, clientArea_.Height());
  }
  if (horz.shown)
    horz.bar->setGeometry(clientArea_.Left, clientArea_.Bottom, clientArea_.Width(), GetSystemMetrics(SM_CYHSCROLL));
}

bool GetScrollInfo(TWinControl* control, int bar, TScrollInfo& info) {
  TWindowScrollBar* state = BarOf(control, bar);
  if (!state) return false;
  if (info.fMask & SIF_RANGE) {
    info.nMin = state->info.nMin;
    info.nMax = state->info.nMax;
  }
  if (info.fMask & SIF_PAGE) info.nPage = state->info.nPage;
  if (info.fMask & SIF_POS) info.nPos = state->info.nPos;
  if (info.fMask & SIF_TRACKPOS) info.nTrackPos = state->info.nTrackPos;
  return true;
}

int SetScrollInfo(TWinControl* control, int bar, const TScrollInfo& info, bool redraw) {
  TWindowScrollBar* state = BarOf(control, bar);
  if (!state) return 0;
  TScrollInfo& kept = state->info;
  if (info.fMask & SIF_RANGE) {
    kept.nMin = info.nMin;
    kept.nMax = info.nMax;
  }
  if (info.fMask & SIF_PAGE) kept.nPage = std::min(info.nPage, UINT(std::max(kept.nMax - kept.nMin + 1, 0)));
  if (info.fMask & SIF_POS) kept.nPos = info.nPos;
  kept.nPos = std::clamp(kept.nPos, kept.nMin, MaxPosition(kept));
  kept.nTrackPos = kept.nPos;
  control->Private()->ApplyScrollInfo(bar, redraw);
  return kept.nPos;
}

int SetScrollPos(TWinControl* control, int bar, int pos, bool redraw) {
  TWindowScrollBar* state = BarOf(control, bar);
  if (!state) return 0;
  int previous = state->info.nPos;
  TScrollInfo info;
  info.fMask = SIF_POS;
  info.nPos = pos;
  SetScrollInfo(control, bar, info, redraw);
  return previous;
}

bool SetScrollRange(TWinControl* control, int bar, int minPos, int maxPos, bool redraw) {
  if (!BarOf(control, bar)) return false;
  TScrollInfo info;
  info.fMask = SIF_RANGE;
  info.nMin = minPos;
  info.nMax = maxPos;
  SetScrollInfo(control, bar, info, redraw);
  return true;
}

bool GetScrollRange(TWinControl* control, int bar, int& minPos, int& maxPos) {
  TWindowScrollBar* state = BarOf(control, bar);
  if (!state) return false;
  minPos = state->info.nMin;
  maxPos = state->info.nMax;
  return true;
}

bool ShowScrollBar(TWinControl* control, int bar, bool show) {
  if (!control || !control->HandleAllocated()) return false;
  if (bar == SB_BOTH) {
    control->Private()->SetScrollBarShown(SB_HORZ, show);
    control->Private()->SetScrollBarShown(SB_VERT, show);
  } else if (BarOf(control, bar)) {
    control->Private()->SetScrollBarShown(bar, show);
  }
  return true;
}

bool InitializeFlatSB(TWinControl* control) { return control && control->HandleAllocated(); }

bool FlatSB_GetScrollInfo(TWinControl* control, int bar, TScrollInfo& info) {
  return GetScrollInfo(control, bar, info);
}

int FlatSB_SetScrollInfo(TWinControl* control, int bar, const TScrollInfo& info, bool redraw) {
  return SetScrollInfo(control, bar, info, redraw);
}

int FlatSB_SetScrollPos(TWinControl* control, int bar, int pos, bool redraw) {
  return SetScrollPos(control, bar, pos, redraw);
}

bool FlatSB_SetScrollRange(TWinControl* control, int bar, int minPos, int maxPos, bool redraw) {
  return SetScrollRange(control, bar, minPos, maxPos, redraw);
}

bool FlatSB_GetScrollRange(TWinControl* control, int bar, int& minPos, int& maxPos) {
  return GetScrollRange(control, bar, minPos, maxPos);
}

bool FlatSB_GetScrollProp(TWinControl* control, int index, int& value) {
  if (!control) return false;
  switch (index) {
    case WSB_PROP_CXHSCROLL:
    case WSB_PROP_CYVSCROLL:
    case WSB_PROP_CYHSCROLL:
    case WSB_PROP_CXVSCROLL: value = GetSystemMetrics(SM_CXVSCROLL); return true;
    case WSB_PROP_CXHTHUMB:
    case WSB_PROP_CYVTHUMB: value = GetSystemMetrics(SM_CXHTHUMB); return true;
    default: value = 0; return true;
  }
}

// The one look of bar has no colors or styles to set; the call succeeds as on a plain bar.
bool FlatSB_SetScrollProp(TWinControl* control, int index, int value, bool redraw) { return control != nullptr; }

}  // namespace quil
