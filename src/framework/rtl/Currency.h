#pragma once
// A fixed-point money value: an integer count of ten-thousandths, so that sums of
// amounts are exact.

#include <cstdint>

namespace quil {

struct Currency {
  static constexpr int64_t Scale = 10000;

  int64_t scaled = 0;

  // Rounds to the nearest ten-thousandth, halves to even as the FPU does.
  static Currency FromDouble(double value);
  static constexpr Currency FromScaled(int64_t scaled) { return Currency{scaled}; }
  double ToDouble() const { return double(scaled) / Scale; }

  friend constexpr bool operator==(Currency a, Currency b) = default;
  friend constexpr auto operator<=>(Currency a, Currency b) = default;
};

}  // namespace quil
