#pragma once

#include "platform/clock.h"

namespace sentrel {

/// Month names and AM/PM designators of the system's language.
class SystemLocale : public Locale {
 public:
  SystemLocale();
  const LocaleTexts& Texts() const override { return texts_; }

 private:
  LocaleTexts texts_;
};

}  // namespace sentrel
