#pragma once

namespace sentrel {

/// Rounds to the nearest whole number, a tie going to the even one. The value must be in the
/// range of int.
int RoundHalfEven(double value);

}  // namespace sentrel
