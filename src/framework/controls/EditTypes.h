#pragma once
// Settings that edit controls and the controls that host an editor share: the letter
// case of the text and the name of the input method (its mode is the control's TImeMode).

#include <QString>

#include "framework/controls/Controls.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

enum TEditCharCase { ecNormal, ecUpperCase, ecLowerCase };
inline const TEnumTypeInfo& TypeInfo(TEditCharCase) {
  static const TEnumTypeInfo info("TEditCharCase", {"ecNormal", "ecUpperCase", "ecLowerCase"});
  return info;
}

// The name of an input method; empty is the system's default one.
using TImeName = QString;

}  // namespace quil
