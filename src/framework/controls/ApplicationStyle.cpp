// TApplication and the active style: a switch of style gives every window the style's
// palette (so that Qt's own widgets, such as the in-place editor, follow) and sends
// CM_STYLECHANGED down every control tree, whose default handling repaints.

#include <QApplication>
#include <QWidget>

#include "framework/controls/Application.h"
#include "framework/controls/Controls_p.h"
#include "framework/graphics/StyleServices.h"
#include "framework/graphics/StyleServices_p.h"

namespace quil {

namespace {

void BroadcastStyleChanged(TControl* control) {
  control->Perform(CM_STYLECHANGED, 0, 0);
  if (auto* window = dynamic_cast<TWinControl*>(control))
    for (int index = 0; index < window->ControlCount(); ++index) BroadcastStyleChanged(window->Controls(index));
}

}  // namespace

void ApplyStylePalette(QWidget* window) {
  const TCustomStyleServices& style = TStyleManager::ActiveStyle();
  // An empty palette lets the window follow the application's, which the desktop sets.
  window->setPalette(style.IsSystemStyle() ? QPalette() : StylePalette(style));
}

void TApplication::StyleChanged(TObject* sender) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    TWinControl* control = FindControl(window);
    if (!control) continue;
    ApplyStylePalette(window);
    BroadcastStyleChanged(control);
  }
}

void WatchStyleChanges() {
  static bool watching = false;
  if (watching) return;
  watching = true;
  TStyleManager::AddStyleChangedHandler(TNotifyEvent(Application, &TApplication::StyleChanged));
}

}  // namespace quil
