#include "framework/rtl/ExceptionHandler.h"

namespace quil {

TExceptionHandler& ApplicationHandleException() {
  static TExceptionHandler handler;
  return handler;
}

}  // namespace quil
