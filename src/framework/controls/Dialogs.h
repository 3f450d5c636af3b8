#pragma once
// MessageDlg: a modal message box with the framework's kinds and buttons, over
// QMessageBox. An application (or a test) may answer the questions itself through
// SetMessageDlgHandler, in place of the box.

#include <QString>
#include <functional>

#include "framework/controls/Forms.h"
#include "framework/rtl/Sets.h"

namespace quil {

enum TMsgDlgType { mtWarning, mtError, mtInformation, mtConfirmation, mtCustom };
enum TMsgDlgBtn { mbYes, mbNo, mbOK, mbCancel, mbAbort, mbRetry, mbIgnore, mbAll, mbNoToAll, mbYesToAll, mbHelp, mbClose };
using TMsgDlgButtons = TSet<TMsgDlgBtn>;

constexpr TModalResult mrAll = 12;
constexpr TModalResult mrNoToAll = 13;
constexpr TModalResult mrYesToAll = 14;

// Shows the message and answers the modal result of the button pressed, mrCancel when
// the box is closed without one. helpContext is not used.
TModalResult MessageDlg(const QString& message, TMsgDlgType type, TMsgDlgButtons buttons, int helpContext = 0);

using TMessageDlgHandler = std::function<TModalResult(const QString& message, TMsgDlgType type, TMsgDlgButtons buttons)>;
// Answers every MessageDlg until it is cleared with an empty handler; returns the one
// it replaces.
TMessageDlgHandler SetMessageDlgHandler(TMessageDlgHandler handler);

}  // namespace quil
