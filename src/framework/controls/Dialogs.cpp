#include "framework/controls/Dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace quil {

namespace {

TMessageDlgHandler& Handler() {
  static TMessageDlgHandler handler;
  return handler;
}

struct TButtonKind {
  TMsgDlgBtn button;
  QMessageBox::StandardButton standard;
  TModalResult result;
};

constexpr TButtonKind ButtonKinds[] = {
    {mbYes, QMessageBox::Yes, mrYes},         {mbNo, QMessageBox::No, mrNo},
    {mbOK, QMessageBox::Ok, mrOk},            {mbCancel, QMessageBox::Cancel, mrCancel},
    {mbAbort, QMessageBox::Abort, mrAbort},   {mbRetry, QMessageBox::Retry, mrRetry},
    {mbIgnore, QMessageBox::Ignore, mrIgnore}, {mbAll, QMessageBox::NoButton, mrAll},
    {mbNoToAll, QMessageBox::NoToAll, mrNoToAll}, {mbYesToAll, QMessageBox::YesToAll, mrYesToAll},
    {mbHelp, QMessageBox::Help, mrNone},      {mbClose, QMessageBox::Close, mrClose},
};

QMessageBox::Icon IconOf(TMsgDlgType type) {
  switch (type) {
    case mtWarning: return QMessageBox::Warning;
    case mtError: return QMessageBox::Critical;
    case mtInformation: return QMessageBox::Information;
    case mtConfirmation: return QMessageBox::Question;
    default: return QMessageBox::NoIcon;
  }
}

QString CaptionOf(TMsgDlgType type) {
  switch (type) {
    case mtWarning: return QStringLiteral("Warning");
    case mtError: return QStringLiteral("Error");
    case mtInformation: return QStringLiteral("Information");
    case mtConfirmation: return QStringLiteral("Confirm");
    default: return QApplication::applicationDisplayName();
  }
}

}  // namespace

TMessageDlgHandler SetMessageDlgHandler(TMessageDlgHandler handler) {
  TMessageDlgHandler previous = std::move(Handler());
  Handler() = std::move(handler);
  return previous;
}

TModalResult MessageDlg(const QString& message, TMsgDlgType type, TMsgDlgButtons buttons, int) {
  if (Handler()) return Handler()(message, type, buttons);
  QMessageBox box(IconOf(type), CaptionOf(type), message, QMessageBox::NoButton, QApplication::activeWindow());
  for (const TButtonKind& kind : ButtonKinds) {
    if (!buttons.Contains(kind.button)) continue;
    QPushButton* button = kind.standard == QMessageBox::NoButton
                              ? box.addButton(QStringLiteral("&All"), QMessageBox::AcceptRole)
                              : box.addButton(kind.standard);
    button->setProperty("quilModalResult", kind.result);
  }
  box.exec();
  QAbstractButton* clicked = box.clickedButton();
  return clicked ? TModalResult(clicked->property("quilModalResult").toInt()) : mrCancel;
}

}  // namespace quil
