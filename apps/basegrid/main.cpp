// The base grid's demo window: a plain grid of 1,000 x 50 cells that scrolls, sizes,
// moves columns and edits in place.
//   quil_basegrid [--screenshot FILE] [--top-row N] [--left-col N] [--edit] [--color-style NAME]
//                 [--script FILE]
// With --screenshot it lays out, applies the other options, plays the script (the demo's
// DemoScript.h tells its steps), takes the window's picture into a PNG and quits, so that
// a test can look at it. On a window system the picture is what the screen shows, so
// that pixels the grid scrolled rather than repainted are seen as they are. F11 switches the style at run
// time: the desktop's, "Quil Light", "Quil Dark".

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <QDeadlineTimer>
#include <QPixmap>
#include <QWindow>
#include <QScreen>
#include <QWidget>
#include <cstdio>
#include <optional>

#include "CellGrid.h"
#include "DemoScript.h"
#include "framework/controls/Forms.h"
#include "framework/controls/VirtualKeys.h"
#include "framework/graphics/StyleServices.h"

namespace {

struct Options {
  QString screenshot;
  int topRow = 1;
  int leftCol = 1;
  bool edit = false;
  QString style;
  QString script;
};

Options ParseOptions(const QApplication& app) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Base grid demo");
  parser.addHelpOption();
  parser.addOption({"screenshot", "Render the window into a PNG and quit.", "file"});
  parser.addOption({"top-row", "Scroll so that this row is the first below the titles.", "row", "1"});
  parser.addOption({"left-col", "Scroll so that this column is the first after the row numbers.", "col", "1"});
  parser.addOption({"edit", "Open the in-place editor on the current cell."});
  parser.addOption({"color-style", "Paint in this style: \"Quil Light\", \"Quil Dark\" or \"Windows\".", "name"});
  parser.addOption({"script", "Replay the keys, clicks, drags and wheel turns of this file.", "file"});
  parser.process(app);
  Options options;
  options.screenshot = parser.value("screenshot");
  options.topRow = parser.value("top-row").toInt();
  options.leftCol = parser.value("left-col").toInt();
  options.edit = parser.isSet("edit");
  options.style = parser.value("color-style");
  options.script = parser.value("script");
  return options;
}

// Steps through the styles on F11.
class StyleSwitcher : public quil::TObject {
public:
  void KeyDown(quil::TObject*, uint16_t& key, quil::TShiftState) {
    if (key != quil::VK_F11) return;
    const QStringList names = quil::TStyleManager::StyleNames();
    const int next = (names.indexOf(quil::TStyleManager::ActiveStyle().Name()) + 1) % names.size();
    quil::TStyleManager::SetStyle(names[next]);
    key = 0;
  }
};

// Puts the grid where the options ask; the current cell follows the top left one.
void ApplyOptions(quil::demo::TCellGrid& grid, const Options& options) {
  grid.SetFocus();
  grid.MoveColRow(options.leftCol, options.topRow, true, true);
  grid.SetTopRow(options.topRow);
  grid.SetLeftCol(options.leftCol);
  if (options.edit) grid.SetEditorMode(true);
}

void WaitUntilShown(QWidget* window) {
  QDeadlineTimer deadline(5000);
  while (!deadline.hasExpired() && !(window->windowHandle()->isExposed() && window->isActiveWindow()))
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

// Offscreen there is no screen to read: the window paints itself into the picture.
QPixmap Picture(QWidget* window) {
  if (QGuiApplication::platformName() == QLatin1String("offscreen")) return window->grab();
  return window->screen()->grabWindow(window->winId());
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const Options options = ParseOptions(app);
  std::optional<demo::Script> script;
  try {
    if (!options.script.isEmpty()) script = demo::LoadScript(options.script);
  } catch (const demo::ScriptError& error) {
    std::fprintf(stderr, "basegrid: %s\n", error.what());
    return 1;
  }
  if (!options.style.isEmpty() && !quil::TStyleManager::TrySetStyle(options.style)) {
    std::fprintf(stderr, "basegrid: no style named %s\n", qPrintable(options.style));
    return 1;
  }
  quil::TForm form(nullptr);
  form.SetCaption(QStringLiteral("Base grid"));
  form.SetBounds(0, 0, 1024, 640);
  auto* grid = new quil::demo::TCellGrid(&form);
  grid->SetParent(&form);
  grid->SetAlign(quil::alClient);
  StyleSwitcher switcher;
  grid->SetOnKeyDown(quil::TKeyEvent(&switcher, &StyleSwitcher::KeyDown));
  form.Show();
  form.Handle()->activateWindow();
  // The options and the script wait for the window to be shown and active, so that the
  // grid can take the focus and the mouse meets the window where the screen shows it.
  QTimer::singleShot(0, &app, [&] {
    WaitUntilShown(form.Handle());
    ApplyOptions(*grid, options);
    try {
      if (script) demo::PlayScript(*script, *grid);
    } catch (const demo::ScriptError& error) {
      std::fprintf(stderr, "basegrid: %s\n", error.what());
      app.exit(1);
      return;
    }
    if (options.screenshot.isEmpty()) return;
    // The window system shows the last paints a moment later than they are made.
    QTimer::singleShot(100, &app, [&] {
      const bool saved = Picture(form.Handle()).save(options.screenshot, "PNG");
      if (!saved) std::fprintf(stderr, "basegrid: cannot write %s\n", qPrintable(options.screenshot));
      app.exit(saved ? 0 : 1);
    });
  });
  return app.exec();
}
