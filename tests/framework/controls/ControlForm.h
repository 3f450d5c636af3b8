#pragma once
// A shown, active form for tests of controls, and pixel questions about its window.

#include <QImage>
#include <QTest>
#include <QWidget>

#include "framework/controls/Forms.h"
#include "framework/graphics/Colors.h"
#include "framework/graphics/Types_p.h"
#include "framework/rtl/Events.h"

namespace quil::test {

class ControlForm {
public:
  ControlForm(int width = 300, int height = 200) : form(new TForm(nullptr)) {
    form->SetBounds(0, 0, width, height);
    form->SetColor(clWhite);
  }
  ~ControlForm() { delete form; }

  // Shows the form and waits until it is on screen and active.
  bool Show() {
    form->Show();
    form->Handle()->activateWindow();
    return QTest::qWaitForWindowExposed(form->Handle()) && QTest::qWaitForWindowActive(form->Handle());
  }
  QImage Grab() { return form->Handle()->grab().toImage(); }
  // Pixels in rect (form client coordinates) whose color is not the background.
  int Ink(const TRect& rect, TColor background = clWhite) {
    const QImage image = Grab();
    const QColor paper(GetRValue(background), GetGValue(background), GetBValue(background));
    int ink = 0;
    for (int y = rect.Top; y < rect.Bottom; ++y)
      for (int x = rect.Left; x < rect.Right; ++x) ink += image.pixelColor(x, y) != paper;
    return ink;
  }

  TForm* form;
};

// Counts the notifications of the events it is bound to.
class EventCounter : public TObject {
public:
  int count = 0;
  void Heard(TObject*) { ++count; }
  TNotifyEvent Handler() { return TNotifyEvent(this, &EventCounter::Heard); }
};

inline QColor Rgb(TColor color) {
  color = ColorToRGB(color);
  return QColor(GetRValue(color), GetGValue(color), GetBValue(color));
}

}  // namespace quil::test
