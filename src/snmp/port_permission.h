#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace sentrel {

/// The user of a process, as far as files ask for it.
struct PortUser {
  uid_t id = 0;
  std::string name;
  /// The groups that this session has, which a change of the system's list leaves alone.
  std::vector<gid_t> groups;
};

/// Who runs this process.
PortUser ThisUser();

/// What lets the user open the port: the one command for an administrator, and what it takes after
/// that to start this program. `helper` is the path of sentrel-port, empty where none was to be
/// used.
std::string HowToBeLetIn(const std::string& helper, const PortUser& user);

}  // namespace sentrel
