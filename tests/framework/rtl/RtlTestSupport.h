#pragma once
// Helpers shared by the container tests: an object that counts its live instances, and
// the lines of a string list.

#include <QStringList>

#include "framework/rtl/Object.h"
#include "QtPrinters.h"
#include "framework/rtl/Strings.h"

namespace rtltest {

// Counts itself in live while it exists, so a test sees who freed what.
class TTracked : public quil::TObject {
public:
  explicit TTracked(int& live) : live_(live) { ++live_; }
  ~TTracked() override { --live_; }

private:
  int& live_;
};

inline QStringList Lines(const quil::TStrings& strings) {
  QStringList lines;
  for (int index = 0; index < strings.Count(); ++index) lines << strings.Strings(index);
  return lines;
}

}  // namespace rtltest
