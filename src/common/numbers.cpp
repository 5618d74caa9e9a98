#include "common/numbers.h"

#include <cmath>

namespace sentrel {

int RoundHalfEven(double value) {
  const double floor = std::floor(value);
  const double fraction = value - floor;
  const int below = static_cast<int>(floor);
  if (fraction != 0.5) return fraction < 0.5 ? below : below + 1;
  return below % 2 == 0 ? below : below + 1;
}

}  // namespace sentrel
