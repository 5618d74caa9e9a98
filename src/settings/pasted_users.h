#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/version3_user_store.h"

namespace sentrel {

struct PastedUsers {
  /// All of them complete and right, none of them from a file, those of any engine without one.
  std::vector<Version3UserEntry> users;
  /// Why the other users cannot be taken, a sentence each. Of the pasted text they hold the names
  /// of users alone.
  std::vector<std::string> problems;
};

/// The users that lines of a configuration create: "createUser", and the commands with which
/// devices of several makes create theirs, prompts in front or not. Any other line is passed over.
PastedUsers ReadPastedUsers(std::string_view text);

}  // namespace sentrel
