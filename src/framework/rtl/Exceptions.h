#pragma once
// The framework's exception classes. Every failure a user can cause is one of these,
// carrying the text the user sees in Message().

#include <QString>
#include <exception>
#include <string>

namespace quil {

class Exception : public std::exception {
public:
  explicit Exception(QString message);
  const QString& Message() const { return message_; }
  void SetMessage(const QString& message);
  const char* what() const noexcept override { return utf8_.c_str(); }

private:
  QString message_;
  std::string utf8_;
};

#define QUIL_EXCEPTION_CLASS(Name, Base) \
  class Name : public Base {             \
  public:                                \
    using Base::Base;                    \
  }

// The silent exception: it ends an operation, and the application's handler shows nothing.
QUIL_EXCEPTION_CLASS(EAbort, Exception);
QUIL_EXCEPTION_CLASS(EConvertError, Exception);
QUIL_EXCEPTION_CLASS(EDatabaseError, Exception);
QUIL_EXCEPTION_CLASS(EInvalidGridOperation, Exception);
QUIL_EXCEPTION_CLASS(EListError, Exception);
QUIL_EXCEPTION_CLASS(EStringListError, EListError);  // a string list is a list: one handler serves both
QUIL_EXCEPTION_CLASS(EComponentError, Exception);
QUIL_EXCEPTION_CLASS(EPropertyError, Exception);
QUIL_EXCEPTION_CLASS(EStreamError, Exception);
QUIL_EXCEPTION_CLASS(EFOpenError, EStreamError);
QUIL_EXCEPTION_CLASS(EFilerError, EStreamError);
QUIL_EXCEPTION_CLASS(EReadError, EFilerError);
QUIL_EXCEPTION_CLASS(EWriteError, EFilerError);
QUIL_EXCEPTION_CLASS(EClassNotFound, EFilerError);
QUIL_EXCEPTION_CLASS(EParserError, Exception);
QUIL_EXCEPTION_CLASS(EVariantError, Exception);
QUIL_EXCEPTION_CLASS(EIniFileException, Exception);

#undef QUIL_EXCEPTION_CLASS

// Raises EAbort ("Operation aborted").
[[noreturn]] void Abort();

// Raises EDatabaseError with the message, as the data classes do.
[[noreturn]] void DatabaseError(const QString& message);

}  // namespace quil
