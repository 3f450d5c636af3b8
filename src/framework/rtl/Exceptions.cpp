#include "framework/rtl/Exceptions.h"

namespace quil {

Exception::Exception(QString message)
    : message_(std::move(message)), utf8_(message_.toStdString()) {}

void Exception::SetMessage(const QString& message) {
  message_ = message;
  utf8_ = message.toStdString();
}

void Abort() { throw EAbort(QStringLiteral("Operation aborted")); }

void DatabaseError(const QString& message) { throw EDatabaseError(message); }

}  // namespace quil
