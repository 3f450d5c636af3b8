// The application as the runtime's handler of exceptions that no caller can take: a
// data set hands such an exception to ApplicationHandleException inside its catch block.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <stdexcept>

#include "framework/controls/Application.h"
#include "framework/rtl/ExceptionHandler.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;

namespace {

class ApplicationException : public testing::Test {
protected:
  void SetUp() override {
    Application->SetOnException([this](TObject* sender, const Exception& error) {
      senders << sender;
      messages << error.Message();
    });
  }
  void TearDown() override {
    Application->SetOnException(nullptr);
    Application->SetTitle(QString());
  }

  // Raises and hands the exception to the runtime's handler, as a fetch does.
  template <typename E>
  void RaiseAndHandle(const E& error) {
    try {
      throw error;
    } catch (...) {
      ApplicationHandleException()(&sender);
    }
  }

  TComponent sender{nullptr};
  QList<TObject*> senders;
  QStringList messages;
};

TEST_F(ApplicationException, IsTheRuntimesHandlerFromTheStart) {
  EXPECT_TRUE(ApplicationHandleException() ==
              TExceptionHandler(Application, &TApplication::HandleException));
}

TEST_F(ApplicationException, ReachesOnExceptionWithTheSenderAndTheMessage) {
  RaiseAndHandle(EDatabaseError("no record 2"));
  RaiseAndHandle(std::runtime_error("out of memory"));
  EXPECT_EQ(senders, (QList<TObject*>{&sender, &sender}));
  EXPECT_EQ(messages, (QStringList{"no record 2", "out of memory"}));
}

TEST_F(ApplicationException, AbortGoesSilently) {
  try {
    Abort();
  } catch (...) {
    ApplicationHandleException()(&sender);
  }
  EXPECT_TRUE(messages.isEmpty());
}

TEST_F(ApplicationException, WithoutOnExceptionShowsTheMessageUnderTheTitle) {
  Application->SetOnException(nullptr);
  Application->SetTitle("Orders");
  QString shownTitle;
  QString shownText;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    shownTitle = box->windowTitle();
    shownText = box->text();
    box->close();
  });
  RaiseAndHandle(EConvertError("'x' is not a valid integer value"));
  EXPECT_EQ(shownTitle, "Orders");
  EXPECT_EQ(shownText, "'x' is not a valid integer value.");
}

}  // namespace
