#include "common/moment_text.h"

#include <fmt/chrono.h>

namespace sentrel {

std::string TimeText(std::chrono::system_clock::time_point moment) {
  const std::tm local = fmt::localtime(std::chrono::system_clock::to_time_t(moment));
  return fmt::format("{:%Y-%m-%d} {}", local, TimeOfDayText(moment));
}

std::string TimeOfDayText(std::chrono::system_clock::time_point moment) {
  const auto milliseconds =
      std::chrono::duration_cast<std::chrono::milliseconds>(moment.time_since_epoch()).count();
  const std::tm local = fmt::localtime(std::chrono::system_clock::to_time_t(moment));
  return fmt::format("{:%H:%M:%S}.{:03}", local, milliseconds % 1000);
}

}  // namespace sentrel
