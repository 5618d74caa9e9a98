#pragma once

#include <string>

#include "platform/version3_user_store.h"

namespace sentrel {

/// Which passphrases may be empty, because the key that was made of an earlier one is kept.
struct KeptKeys {
  bool authentication = false;
  bool privacy = false;
};

/// Why the user could not be heard, or not as meant, in a sentence that holds no passphrase; ""
/// where nothing is wrong.
std::string ProblemOf(const Version3UserEntry& entry, const KeptKeys& kept = {});

/// Which key forms to try, in a sentence; "" where there is but one.
std::string KeyFormHint(Authentication authentication, Privacy privacy);

}  // namespace sentrel
