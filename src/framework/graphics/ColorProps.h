#pragma once
// Color properties: integers that streams write by the name of a named color.

#include "framework/graphics/Colors.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

template <typename C, typename F, typename S = std::nullptr_t>
auto ColorProp(const char* name, F C::*getter, S setter = nullptr) {
  return IntProp(name, getter, setter).OfType(ColorTypeInfo());
}

}  // namespace quil
