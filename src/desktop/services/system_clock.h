#pragma once

#include <ctime>

#include "platform/clock.h"

namespace sentrel {

/// Works out the local time once a second.
class SystemClock : public Clock {
 public:
  LocalTime Now() const override;

 private:
  mutable std::time_t second_ = -1;
  mutable LocalTime local_;
};

}  // namespace sentrel
