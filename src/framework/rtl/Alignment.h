#pragma once
// Horizontal alignment of text, shared by fields, columns and controls.

#include "framework/rtl/TypInfo.h"

namespace quil {

enum TAlignment { taLeftJustify, taRightJustify, taCenter };

inline const TEnumTypeInfo& TypeInfo(TAlignment) {
  static const TEnumTypeInfo info("TAlignment", {"taLeftJustify", "taRightJustify", "taCenter"});
  return info;
}

}  // namespace quil
