#include "desktop/services/system_clock.h"

namespace sentrel {

LocalTime SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  if (now == second_) return local_;
  std::tm local{};
  localtime_r(&now, &local);
  second_ = now;
  local_ = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
  return local_;
}

}  // namespace sentrel
