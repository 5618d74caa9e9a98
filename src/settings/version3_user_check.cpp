#include "settings/version3_user_check.h"

#include <fmt/format.h>

#include <algorithm>

#include "settings/version3_names.h"

namespace sentrel {
namespace {

/// RFC 3414, section 2.4.
constexpr std::size_t kLongestName = 32;
/// RFC 3414, section 11.2.
constexpr std::size_t kShortestPassphrase = 8;

bool HoldsControls(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    const auto octet = static_cast<unsigned char>(c);
    return octet < 0x20 || octet == 0x7F;
  });
}

std::string ProblemOfName(const std::string& name) {
  if (name.empty()) return "Please enter the name of the user.";
  if (name.size() > kLongestName) return "The name of a user has at most 32 characters.";
  return HoldsControls(name) ? "The name of a user has no control characters." : "";
}

std::string ProblemOfPassphrase(const std::string& passphrase, const char* purpose, bool isKept) {
  if (passphrase.empty() && isKept) return "";
  if (passphrase.size() < kShortestPassphrase)
    return fmt::format("The {} passphrase has at least 8 characters.", purpose);
  if (!HoldsControls(passphrase)) return "";
  return fmt::format("The {} passphrase has no control characters.", purpose);
}

}  // namespace

std::string ProblemOf(const Version3UserEntry& entry, const KeptKeys& kept) {
  const Version3User& user = entry.user;
  if (std::string problem = ProblemOfName(user.name); !problem.empty()) return problem;
  if (user.authentication == Authentication::kNone && user.privacy != Privacy::kNone)
    return "There is no privacy without authentication: please choose an authentication protocol.";
  if (user.authentication != Authentication::kNone) {
    std::string problem =
        ProblemOfPassphrase(entry.authPassphrase, "authentication", kept.authentication);
    if (!problem.empty()) return problem;
  }
  if (user.privacy != Privacy::kNone) {
    std::string problem = ProblemOfPassphrase(entry.privPassphrase, "privacy", kept.privacy);
    if (!problem.empty()) return problem;
  }
  if (user.leastLevel > LevelOf(user.authentication, user.privacy))
    return "The least level asks for more than the protocols of the user can do.";
  return "";
}

std::string KeyFormHint(Authentication authentication, Privacy privacy) {
  const auto other = OtherKeyForm(authentication, privacy);
  if (!other) return "";
  return fmt::format(
      "With {} the key is too short for {}, and devices lengthen it in two ways. If nothing "
      "arrives, "
      "try {}; or choose SHA-256 or better on both sides.",
      NameOf(authentication), NameOf(privacy), NameOf(*other));
}

}  // namespace sentrel
