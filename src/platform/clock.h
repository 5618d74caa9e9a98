#pragma once

#include "common/dates.h"

namespace sentrel {

/// The time of day. Called on the event loop; never throws.
class Clock {
 public:
  virtual ~Clock() = default;
  /// The present moment in the zone of the system.
  virtual LocalTime Now() const = 0;
};

/// The language of the system's dates. Called on the event loop; never throws.
class Locale {
 public:
  virtual ~Locale() = default;
  /// Stays valid and unchanged as long as the locale object lives.
  virtual const LocaleTexts& Texts() const = 0;
};

}  // namespace sentrel
