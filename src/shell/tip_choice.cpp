#include "shell/tip_choice.h"

#include <chrono>
#include <utility>

namespace sentrel {
namespace {

/// One higher each day.
unsigned DayNumber(const LocalTime& day) {
  using namespace std::chrono;
  const sys_days date = year(day.year) / day.month / day.day;
  return static_cast<unsigned>(date.time_since_epoch().count());
}

}  // namespace

TipChoice::TipChoice(std::vector<Tip> tips, const LocalTime& today)
    : tips_(std::move(tips)), place_(DayNumber(today) % tips_.size()) {}

}  // namespace sentrel
