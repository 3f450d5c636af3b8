// SetWindowPos over the window's QWidget.
#include <QWidget>

#include "framework/controls/Controls.h"

namespace quil {

namespace {

void Order(QWidget* widget, HWND insertAfter) {
  if (insertAfter == HWND_TOPMOST || insertAfter == HWND_NOTOPMOST) {
    if (widget->isWindow()) {
      const bool shown = widget->isVisible();
      // Changing the window's flags hides it; it comes back as it was.
      widget->setWindowFlag(Qt::WindowStaysOnTopHint, insertAfter == HWND_TOPMOST);
      if (shown) widget->show();
    }
    widget->raise();
  } else if (insertAfter == HWND_BOTTOM) {
    widget->lower();
  } else if (insertAfter == HWND_TOP) {
    widget->raise();
  } else if (insertAfter->HandleAllocated()) {
    widget->stackUnder(insertAfter->Handle());
  }
}

}  // namespace

bool SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags) {
  if (!window || !window->HandleAllocated()) return false;
  QWidget* widget = window->Handle();
  if (flags & SWP_NOACTIVATE) widget->setAttribute(Qt::WA_ShowWithoutActivating);
  if (!(flags & SWP_NOZORDER)) Order(widget, insertAfter);
  if ((flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE)) {
    const TRect bounds = window->BoundsRect();
    window->SetBounds(flags & SWP_NOMOVE ? bounds.Left : x, flags & SWP_NOMOVE ? bounds.Top : y,
                      flags & SWP_NOSIZE ? bounds.Width() : width, flags & SWP_NOSIZE ? bounds.Height() : height);
  }
  if (flags & SWP_FRAMECHANGED) window->RecalcClientArea();
  if (flags & SWP_SHOWWINDOW) widget->show();
  else if (flags & SWP_HIDEWINDOW) widget->hide();
  if (!(flags & SWP_NOREDRAW)) widget->update();
  return true;
}

}  // namespace quil
