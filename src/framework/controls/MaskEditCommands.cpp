// TCustomMaskEdit's clipboard and undo commands: keys and the edit's menu become the
// window messages, and only the handlers of those messages change the text.

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QCoreApplication>

#include "framework/controls/Clipboard.h"
#include "framework/controls/Controls_p.h"
#include "framework/controls/MaskEdit.h"
#include "framework/controls/MaskEdit_p.h"
#include "framework/controls/VirtualKeys.h"

namespace quil {

UINT TCustomMaskEdit::EditCommand(uint16_t key, TShiftState shift) {
  const TShiftState ctrl{ssCtrl}, shiftOnly{ssShift}, alt{ssAlt};
  if ((key == 'X' && shift == ctrl) || (key == VK_DELETE && shift == shiftOnly)) return WM_CUT;
  if ((key == 'V' && shift == ctrl) || (key == VK_INSERT && shift == shiftOnly)) return WM_PASTE;
  if ((key == 'Z' && shift == ctrl) || (key == VK_BACK && shift == alt)) return WM_UNDO;
  return 0;
}

bool TCustomMaskEdit::IsRedoKey(uint16_t key, TShiftState shift) {
  return (key == 'Y' && shift == TShiftState{ssCtrl}) || (key == 'Z' && shift == TShiftState{ssCtrl, ssShift});
}

void TCustomMaskEdit::Dispatch(TMessage& message) {
  switch (message.Msg) {
    case WM_CUT: WMCut(message); break;
    case WM_PASTE: WMPaste(message); break;
    case WM_CLEAR: WMClear(message); break;
    case WM_UNDO: WMUndo(message); break;
    default: TWinControl::Dispatch(message); break;
  }
}

void TCustomMaskEdit::WMCut(TMessage& message) {
  QLineEdit* edit = LineEdit(this);
  if (!edit || !EditCanModify()) return;
  edit->cut();
}

void TCustomMaskEdit::WMPaste(TMessage& message) {
  QLineEdit* edit = LineEdit(this);
  if (!edit || !EditCanModify()) return;
  edit->paste();
}

void TCustomMaskEdit::WMClear(TMessage& message) {
  QLineEdit* edit = LineEdit(this);
  if (!edit || !EditCanModify() || !edit->hasSelectedText()) return;
  edit->del();
}

void TCustomMaskEdit::WMUndo(TMessage& message) {
  QLineEdit* edit = LineEdit(this);
  if (!edit || !EditCanModify()) return;
  edit->undo();
  message.Result = 1;
}

void TCustomMaskEdit::WMContextMenu(TMessage& message) {
  if (PopupMenu() || !HandleAllocated()) {
    TWinControl::WMContextMenu(message);
    return;
  }
  ShowEditMenu(LParamToPoint(message.LParam));
  message.Result = 1;
}

// The edit's menu, built here so that every command that changes the text is its message.
void TCustomMaskEdit::ShowEditMenu(TPoint screen) {
  QLineEdit* edit = LineEdit(this);
  bool canModify = EditCanModify() && !edit->isReadOnly();
  bool selected = edit->hasSelectedText();
  QMenu menu;
  auto add = [&](const char* name, const char* text, bool enabled, auto run) {
    QAction* action = menu.addAction(QCoreApplication::translate("QLineEdit", text));
    action->setObjectName(QLatin1String(name));
    action->setEnabled(enabled);
    QObject::connect(action, &QAction::triggered, edit, run);
  };
  auto send = [this](UINT msg) { return [this, msg] { Perform(msg, 0, 0); }; };
  add("edit-undo", "&Undo", canModify && edit->isUndoAvailable(), send(WM_UNDO));
  menu.addSeparator();
  add("edit-cut", "Cu&t", canModify && selected, send(WM_CUT));
  add("edit-copy", "&Copy", selected, [edit] { edit->copy(); });
  add("edit-paste", "&Paste", canModify && !Clipboard()->AsText().isEmpty(), send(WM_PASTE));
  add("edit-delete", "Delete", canModify && selected, send(WM_CLEAR));
  menu.addSeparator();
  add("select-all", "Select All", !edit->text().isEmpty(), [this] { SelectAll(); });
  menu.exec(QPoint(screen.X, screen.Y));
}

}  // namespace quil
