#include "framework/rtl/Extended.h"

#include <bit>
#include <cstddef>

namespace quil {

namespace {

constexpr int kDoubleBias = 1023;
constexpr int kExtendedBias = 16383;
constexpr uint64_t kFractionMask = (uint64_t{1} << 52) - 1;
constexpr uint64_t kIntegerBit = uint64_t{1} << 63;

TExtended80 Pack(bool negative, int biasedExponent, uint64_t significand) {
  TExtended80 bytes{};
  for (int index = 0; index < 8; ++index) bytes[std::size_t(index)] = uint8_t(significand >> (8 * index));
  const unsigned signAndExponent = (negative ? 0x8000u : 0u) | unsigned(biasedExponent);
  bytes[8] = uint8_t(signAndExponent);
  bytes[9] = uint8_t(signAndExponent >> 8);
  return bytes;
}

// value >> shift, rounded to nearest with ties to even.
uint64_t ShiftRightRounded(uint64_t value, int shift) {
  if (shift <= 0) return value;
  if (shift > 64) return 0;
  const uint64_t kept = shift == 64 ? 0 : value >> shift;
  const uint64_t rest = shift == 64 ? value : value & ((uint64_t{1} << shift) - 1);
  const uint64_t half = uint64_t{1} << (shift - 1);
  return kept + ((rest > half || (rest == half && (kept & 1))) ? 1 : 0);
}

double FromBits(bool negative, uint64_t bits) {
  return std::bit_cast<double>(bits | (negative ? kIntegerBit : 0));
}

}  // namespace

TExtended80 DoubleToExtended(double value) {
  const uint64_t bits = std::bit_cast<uint64_t>(value);
  const bool negative = (bits >> 63) != 0;
  const int exponent = int((bits >> 52) & 0x7FF);
  const uint64_t fraction = bits & kFractionMask;
  if (exponent == 0x7FF) return Pack(negative, 0x7FFF, kIntegerBit | (fraction << 11));
  if (exponent != 0)
    return Pack(negative, exponent - kDoubleBias + kExtendedBias, kIntegerBit | (fraction << 11));
  if (fraction == 0) return Pack(negative, 0, 0);
  // A denormal double is a normal extended: move its leading bit to the integer bit.
  const int leading = 63 - std::countl_zero(fraction);
  return Pack(negative, leading - 1074 + kExtendedBias, fraction << (63 - leading));
}

double ExtendedToDouble(const TExtended80& bytes) {
  uint64_t significand = 0;
  for (int index = 7; index >= 0; --index) significand = (significand << 8) | bytes[std::size_t(index)];
  const unsigned signAndExponent = unsigned(bytes[8]) | (unsigned(bytes[9]) << 8);
  const bool negative = (signAndExponent & 0x8000) != 0;
  const int biased = int(signAndExponent & 0x7FFF);
  const uint64_t infinity = uint64_t{0x7FF} << 52;
  if (biased == 0x7FFF) {
    if ((significand << 1) == 0) return FromBits(negative, infinity);
    const uint64_t payload = (significand >> 11) & kFractionMask;
    return FromBits(negative, infinity | (payload ? payload : uint64_t{1} << 51));
  }
  if (significand == 0) return FromBits(negative, 0);
  // Normalise, so that unnormals and extended denormals read like any other value.
  const int leadingZeros = std::countl_zero(significand);
  significand <<= leadingZeros;
  int exponent = (biased == 0 ? 1 : biased) - kExtendedBias - leadingZeros;
  if (exponent > kDoubleBias) return FromBits(negative, infinity);
  if (exponent >= 1 - kDoubleBias) {
    uint64_t rounded = ShiftRightRounded(significand, 11);
    if (rounded >> 53) {
      rounded >>= 1;
      ++exponent;
    }
    if (exponent > kDoubleBias) return FromBits(negative, infinity);
    return FromBits(negative, (uint64_t(exponent + kDoubleBias) << 52) | (rounded & kFractionMask));
  }
  // Denormal double: fewer significant bits; a carry into bit 52 is the smallest normal.
  const int shift = 11 + (1 - kDoubleBias - exponent);
  return FromBits(negative, ShiftRightRounded(significand, shift));
}

}  // namespace quil
