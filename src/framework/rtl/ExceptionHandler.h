#pragma once
// The application's handler of an exception that no caller can take, such as one a
// filter event raises while a data set decides which records it shows. The handler is
// called inside the catch block, so std::current_exception() is the exception; while
// it is unassigned, the exception goes on to the caller.

#include "framework/rtl/Events.h"

namespace quil {

class TObject;

using TExceptionHandler = TEvent<void(TObject* sender)>;

TExceptionHandler& ApplicationHandleException();

}  // namespace quil
