#pragma once
// Input scripts: a few keys and clicks replayed on a grid before the demo's screenshot,
// so that a picture can show a state the user reaches by hand. The steps travel as real
// Qt key and mouse events, the way the user's own input does.
//
// One step a line; '#' starts a comment line, blank lines are skipped:
//   key SEQUENCE [COUNT]  a key with its modifiers, as Qt writes them: Down, F2, Ctrl+End,
//                         Shift+Tab; COUNT presses it that many times
//   type TEXT             the characters of the rest of the line, one key press each
//   click COL ROW         the middle of a grid cell: column 0 is the indicator, row 0 the
//                         title row, as the grid counts its cells
//   clickat X Y           a point of the grid's client area, in pixels
//   drag X1 Y1 X2 Y2      the left button pressed at one point of the client area, moved
//                         to the other and released there: sizes or moves a column
//   wheel NOTCHES         the mouse wheel over the grid's middle, down for a positive count
//   resize WIDTH HEIGHT   the grid's window to that size
//   wait [MS]             lets queued work run; with MS, that many milliseconds of timers
// Keys go to the widget with the focus (the in-place editor once F2 opens it); the mouse
// goes to the grid.

#include <QKeyCombination>
#include <QString>
#include <stdexcept>
#include <vector>

namespace quil {
class TCustomGrid;
}

namespace demo {

// A script that cannot be read or played; the message names the file and the line.
class ScriptError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

struct ScriptStep {
  enum class Kind { Key, Type, Click, ClickAt, Drag, Wheel, Resize, Wait };
  Kind kind = Kind::Wait;
  int line = 0;  // in the script's text, from 1
  QKeyCombination key;
  int count = 1;  // Key: presses; Wheel: notches, negative for up
  QString text;
  // Click: the raw column and row; ClickAt and Drag: client pixels, where Drag starts;
  // Resize: the window's width and height.
  int x = 0;
  int y = 0;
  int x2 = 0;  // Drag: where it ends, in client pixels
  int y2 = 0;
  int milliseconds = 0;  // Wait: 0 only lets queued work run
};

struct Script {
  QString name;  // the file, for messages
  std::vector<ScriptStep> steps;
};

Script ParseScript(const QString& text, const QString& name);
Script LoadScript(const QString& file);
void PlayScript(const Script& script, quil::TCustomGrid& grid);

}  // namespace demo
