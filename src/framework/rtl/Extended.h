#pragma once
// The 10-byte x87 extended float of the component stream format, little-endian: a
// 64-bit significand with an explicit integer bit, then 15 bits of exponent (bias
// 16383) and the sign bit.

#include <array>
#include <cstdint>

namespace quil {

using TExtended80 = std::array<uint8_t, 10>;

// Exact: every double is an extended.
TExtended80 DoubleToExtended(double value);
// Rounds to the nearest double, ties to even; overflow gives an infinity, values below
// the smallest denormal zero. NaNs stay NaNs.
double ExtendedToDouble(const TExtended80& bytes);

}  // namespace quil
