#pragma once

#include <string>
#include <vector>

#include "snmp/version3_keys.h"

namespace sentrel {

/// What a file of users holds. Damaged lines are left out.
struct Version3UserFile {
  std::vector<KeyedUser> users;
  /// Why it is not the whole truth, in a sentence that names no key; empty where it is.
  std::string problem;
};

/// Reads the text of such a file; docs/version3-users.md tells its form.
Version3UserFile ReadVersion3Users(const std::string& text);
std::string Version3UsersText(const std::vector<KeyedUser>& users);

/// A file that is missing has no users. Nothing is read from a symbolic link, from what is no
/// plain file, and from a file that belongs to somebody else: anyone's keys could be in there. One
/// that others may read is closed to them first. Never throws.
Version3UserFile LoadVersion3Users(const std::string& path);
/// Replaces the file whole or not at all. Throws Failure.
void SaveVersion3Users(const std::string& path, const std::vector<KeyedUser>& users);

}  // namespace sentrel
