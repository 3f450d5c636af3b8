#include <gtest/gtest.h>

#include <utility>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "framework/controls/Dialogs.h"

using namespace quil;

namespace {

// Presses the button with the given text in the message box once it is open, and
// notes what the box showed.
struct BoxPresser {
  explicit BoxPresser(QString text) : buttonText(std::move(text)) {}

  QString buttonText;
  QString shownText, shownTitle;
  QStringList buttons;
  QMessageBox::Icon icon = QMessageBox::NoIcon;

  void Arm() {
    QTimer::singleShot(0, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return;
      shownText = box->text();
      shownTitle = box->windowTitle();
      icon = box->icon();
      for (QAbstractButton* button : box->buttons()) buttons << button->text().remove(QLatin1Char('&'));
      for (QAbstractButton* button : box->buttons())
        if (button->text().remove(QLatin1Char('&')) == buttonText) button->click();
    });
  }
};

TEST(MessageDlg, ShowsTheMessageAndAnswersTheButtonPressed) {
  BoxPresser presser{QStringLiteral("No")};
  presser.Arm();
  EXPECT_EQ(MessageDlg(QStringLiteral("Delete the record?"), mtConfirmation, {mbYes, mbNo}), mrNo);
  EXPECT_EQ(presser.shownText, QStringLiteral("Delete the record?"));
  EXPECT_EQ(presser.shownTitle, QStringLiteral("Confirm"));
  EXPECT_EQ(presser.icon, QMessageBox::Question);
  EXPECT_EQ(presser.buttons.size(), 2);
  BoxPresser ok{QStringLiteral("OK")};
  ok.Arm();
  EXPECT_EQ(MessageDlg(QStringLiteral("Not found"), mtInformation, {mbOK, mbCancel}), mrOk);
  EXPECT_EQ(ok.icon, QMessageBox::Information);
  BoxPresser all{QStringLiteral("All")};
  all.Arm();
  EXPECT_EQ(MessageDlg(QStringLiteral("Replace?"), mtWarning, {mbYes, mbAll, mbCancel}), mrAll);
  EXPECT_EQ(all.buttons.size(), 3);
}

TEST(MessageDlg, HandlerAnswersInPlaceOfTheBox) {
  QString asked;
  TMsgDlgButtons offered;
  TMessageDlgHandler previous = SetMessageDlgHandler(
      [&](const QString& message, TMsgDlgType type, TMsgDlgButtons buttons) {
        asked = message;
        offered = buttons;
        return type == mtConfirmation ? mrYes : mrOk;
      });
  EXPECT_EQ(MessageDlg(QStringLiteral("Go on?"), mtConfirmation, {mbYes, mbNo}), mrYes);
  EXPECT_EQ(asked, QStringLiteral("Go on?"));
  EXPECT_EQ(offered, (TMsgDlgButtons{mbYes, mbNo}));
  EXPECT_FALSE(SetMessageDlgHandler(previous) == nullptr);
}

}  // namespace
