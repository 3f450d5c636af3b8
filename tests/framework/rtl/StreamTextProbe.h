#pragma once
// The text form of a component stream, as the streaming tests compare it.

#include <QString>

#include "framework/rtl/Streams.h"
#include "framework/rtl/ObjectText.h"

namespace quil::test {

// The text form of the component in binary, with lines ending in "\n"; binary is left
// at its start so that it can be read again.
inline QString ObjectText(TMemoryStream& binary) {
  binary.Seek(0, soBeginning);
  TMemoryStream text;
  ObjectBinaryToText(binary, text);
  binary.Seek(0, soBeginning);
  return QString::fromUtf8(static_cast<const char*>(text.Memory()), qsizetype(text.Size()))
      .replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

}  // namespace quil::test
