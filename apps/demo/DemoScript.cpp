#include "DemoScript.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>
#include <cstdlib>

#include "framework/controls/Grids.h"

namespace demo {
namespace {

[[noreturn]] void Fail(const QString& name, int line, const QString& message) {
  throw ScriptError(QStringLiteral("%1:%2: %3").arg(name).arg(line).arg(message).toStdString());
}

class LineParser {
public:
  LineParser(const QString& name, int line, const QString& text) : name_(name), line_(line), text_(text) {}

  ScriptStep Parse() const {
    static const QRegularExpression kSpace(QStringLiteral("\\s+"));
    const QString command = text_.section(kSpace, 0, 0);
    const QString rest = text_.mid(command.size()).trimmed();
    const QStringList words = rest.split(kSpace, Qt::SkipEmptyParts);
    ScriptStep step;
    step.line = line_;
    if (command == QLatin1String("key")) {
      step.kind = ScriptStep::Kind::Key;
      Expect(words.size() == 1 || words.size() == 2, "key wants a key and an optional count: key Down 3");
      step.key = Key(words[0]);
      if (words.size() == 2) step.count = Number(words[1], 1);
    } else if (command == QLatin1String("type")) {
      step.kind = ScriptStep::Kind::Type;
      Expect(!rest.isEmpty(), "type wants the text to type");
      step.text = rest;
    } else if (command == QLatin1String("click") || command == QLatin1String("clickat")) {
      step.kind = command == QLatin1String("click") ? ScriptStep::Kind::Click : ScriptStep::Kind::ClickAt;
      Expect(words.size() == 2, command == QLatin1String("click") ? "click wants a column and a row: click 2 5"
                                                                  : "clickat wants x and y in pixels: clickat 120 48");
      step.x = Number(words[0], 0);
      step.y = Number(words[1], 0);
    } else if (command == QLatin1String("drag")) {
      step.kind = ScriptStep::Kind::Drag;
      Expect(words.size() == 4, "drag wants two points in pixels: drag 100 10 160 10");
      step.x = Number(words[0], 0);
      step.y = Number(words[1], 0);
      step.x2 = Number(words[2], 0);
      step.y2 = Number(words[3], 0);
    } else if (command == QLatin1String("wheel")) {
      step.kind = ScriptStep::Kind::Wheel;
      Expect(words.size() == 1, "wheel wants a number of notches, negative for up: wheel 3");
      step.count = Number(words[0], -1000);
      Expect(step.count != 0, "wheel wants a number of notches other than 0");
    } else if (command == QLatin1String("resize")) {
      step.kind = ScriptStep::Kind::Resize;
      Expect(words.size() == 2, "resize wants a width and a height: resize 800 600");
      step.x = Number(words[0], 1);
      step.y = Number(words[1], 1);
    } else if (command == QLatin1String("wait")) {
      step.kind = ScriptStep::Kind::Wait;
      Expect(words.size() <= 1, "wait takes at most a number of milliseconds");
      if (!words.isEmpty()) step.milliseconds = Number(words[0], 0);
    } else {
      Fail(name_, line_, QStringLiteral("unknown step \"%1\" (key, type, click, clickat, drag, wheel, resize or wait)").arg(command));
    }
    return step;
  }

private:
  void Expect(bool condition, const char* message) const {
    if (!condition) Fail(name_, line_, QString::fromLatin1(message));
  }

  int Number(const QString& word, int least) const {
    bool ok = false;
    const int value = word.toInt(&ok);
    if (!ok || value < least)
      Fail(name_, line_, QStringLiteral("\"%1\" is not a whole number of %2 or more").arg(word).arg(least));
    return value;
  }

  QKeyCombination Key(const QString& word) const {
    const QKeySequence sequence = QKeySequence::fromString(word, QKeySequence::PortableText);
    if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown)
      Fail(name_, line_, QStringLiteral("unknown key \"%1\" (Qt's names: Down, F2, Ctrl+End)").arg(word));
    return sequence[0];
  }

  const QString& name_;
  int line_;
  const QString& text_;
};

// The text a key types: none with Ctrl, Alt or Meta held, nor for keys without a glyph.
QString TextOf(QKeyCombination key) {
  const int code = key.key();
  if (code < Qt::Key_Space || code > 0xffff) return QString();
  if (key.keyboardModifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return QString();
  const QChar ch{char16_t(code)};
  return QString(key.keyboardModifiers() & Qt::ShiftModifier ? ch : ch.toLower());
}

// Keys go to the widget with the focus when it is in the grid's window: after F2 that is
// the in-place editor.
QWidget* KeyTarget(quil::TCustomGrid& grid) {
  QWidget* focus = QApplication::focusWidget();
  if (focus && focus->window() == grid.Handle()->window()) return focus;
  return grid.Handle();
}

void SendKey(quil::TCustomGrid& grid, QKeyCombination key, const QString& text) {
  QPointer<QWidget> target = KeyTarget(grid);
  QKeyEvent press(QEvent::KeyPress, key.key(), key.keyboardModifiers(), text);
  QApplication::sendEvent(target, &press);
  if (!target) return;
  QKeyEvent release(QEvent::KeyRelease, key.key(), key.keyboardModifiers(), text);
  QApplication::sendEvent(target, &release);
}

void TypeText(quil::TCustomGrid& grid, const QString& text) {
  for (const QChar ch : text) {
    const Qt::KeyboardModifiers shift = ch.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
    SendKey(grid, QKeyCombination(shift, Qt::Key(ch.toUpper().unicode())), QString(ch));
    QCoreApplication::processEvents();
  }
}

// A mouse event at a point of the grid's client area, with the left button as given.
void SendMouse(quil::TCustomGrid& grid, QEvent::Type type, quil::TPoint client, Qt::MouseButtons held) {
  QWidget* widget = grid.Handle();
  const quil::TPoint screen = grid.ClientToScreen(client);
  const QPointF global(screen.X, screen.Y);
  const QPointF local = widget->mapFromGlobal(global);
  const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, local, global, button, held, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

void Click(quil::TCustomGrid& grid, quil::TPoint client) {
  SendMouse(grid, QEvent::MouseButtonPress, client, Qt::LeftButton);
  SendMouse(grid, QEvent::MouseButtonRelease, client, Qt::NoButton);
}

// Moves in a few steps, as a hand does, so that the grid sees the drag under way.
void Drag(quil::TCustomGrid& grid, quil::TPoint from, quil::TPoint to) {
  constexpr int kSteps = 4;
  SendMouse(grid, QEvent::MouseMove, from, Qt::NoButton);
  SendMouse(grid, QEvent::MouseButtonPress, from, Qt::LeftButton);
  for (int step = 1; step <= kSteps; ++step) {
    const quil::TPoint at = quil::Point(from.X + (to.X - from.X) * step / kSteps, from.Y + (to.Y - from.Y) * step / kSteps);
    SendMouse(grid, QEvent::MouseMove, at, Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  SendMouse(grid, QEvent::MouseButtonRelease, to, Qt::NoButton);
}

void Wheel(quil::TCustomGrid& grid, int notches) {
  QWidget* widget = grid.Handle();
  const QPointF local(widget->width() / 2.0, widget->height() / 2.0);
  const QPointF global = widget->mapToGlobal(local);
  const QPoint delta(0, notches > 0 ? -QWheelEvent::DefaultDeltasPerStep : QWheelEvent::DefaultDeltasPerStep);
  for (int notch = 0; notch < std::abs(notches); ++notch) {
    QWheelEvent event(local, global, QPoint(), delta, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
    QCoreApplication::processEvents();
  }
}

// Whether a point lies in the grid's client area; a step outside it fails its line.
void CheckInside(const Script& script, const ScriptStep& step, quil::TCustomGrid& grid, int x, int y) {
  if (grid.ClientRect().Contains(quil::Point(x, y))) return;
  Fail(script.name, step.line,
       QStringLiteral("%1 %2 is outside the grid's %3 x %4 pixels").arg(x).arg(y).arg(grid.ClientWidth()).arg(grid.ClientHeight()));
}

void Wait(int milliseconds) {
  QCoreApplication::processEvents();
  if (milliseconds <= 0) return;
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

void PlayStep(const Script& script, const ScriptStep& step, quil::TCustomGrid& grid) {
  switch (step.kind) {
    case ScriptStep::Kind::Key:
      for (int press = 0; press < step.count; ++press) {
        SendKey(grid, step.key, TextOf(step.key));
        QCoreApplication::processEvents();
      }
      break;
    case ScriptStep::Kind::Type: TypeText(grid, step.text); break;
    case ScriptStep::Kind::Click: {
      const quil::TRect cell = grid.CellRect(step.x, step.y);
      if (cell.IsEmpty())
        Fail(script.name, step.line, QStringLiteral("cell %1 %2 is not on screen").arg(step.x).arg(step.y));
      Click(grid, cell.CenterPoint());
      break;
    }
    case ScriptStep::Kind::ClickAt:
      CheckInside(script, step, grid, step.x, step.y);
      Click(grid, quil::Point(step.x, step.y));
      break;
    case ScriptStep::Kind::Drag:
      CheckInside(script, step, grid, step.x, step.y);
      Drag(grid, quil::Point(step.x, step.y), quil::Point(step.x2, step.y2));
      break;
    case ScriptStep::Kind::Wheel: Wheel(grid, step.count); break;
    case ScriptStep::Kind::Resize: grid.Handle()->window()->resize(step.x, step.y); break;
    case ScriptStep::Kind::Wait: break;
  }
  Wait(step.milliseconds);
}

}  // namespace

Script ParseScript(const QString& text, const QString& name) {
  Script script{name, {}};
  const QStringList lines = text.split('\n');
  for (int index = 0; index < lines.size(); ++index) {
    const QString line = lines[index].trimmed();
    if (line.isEmpty() || line.startsWith('#')) continue;
    script.steps.push_back(LineParser(name, index + 1, line).Parse());
  }
  return script;
}

Script LoadScript(const QString& file) {
  QFile input(file);
  if (!input.open(QIODevice::ReadOnly | QIODevice::Text))
    throw ScriptError(QStringLiteral("%1: %2").arg(file, input.errorString()).toStdString());
  return ParseScript(QString::fromUtf8(input.readAll()), file);
}

void PlayScript(const Script& script, quil::TCustomGrid& grid) {
  grid.SetFocus();
  QCoreApplication::processEvents();
  for (const ScriptStep& step : script.steps) PlayStep(script, step, grid);
}

}  // namespace demo
