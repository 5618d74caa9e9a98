#include "snmp/port_holder.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string_view>

namespace sentrel {
namespace {

namespace fs = std::filesystem;

constexpr int kServiceManager = 1;

/// Socket inodes of the port in one of the system's socket lists: a header, then lines such as
/// "  12: 00000000:00A2 00000000:0000 07 ... uid timeout inode ...".
void CollectInodes(const char* list, std::uint16_t port, std::set<std::string>& inodes) {
  std::ifstream file(list);
  std::string line;
  std::getline(file, line);
  while (std::getline(file, line)) {
    std::istringstream fields(line);
    std::string slot, local, remote, state, queues, timer, retransmit, user, timeout, inode;
    fields >> slot >> local >> remote >> state >> queues >> timer >> retransmit >> user >>
        timeout >> inode;
    const std::size_t colon = local.find(':');
    if (colon == std::string::npos || inode.empty()) continue;
    unsigned found = 0;
    std::from_chars(local.data() + colon + 1, local.data() + local.size(), found, 16);
    if (found == port) inodes.insert("socket:[" + inode + "]");
  }
}

bool Holds(const fs::path& process, const std::set<std::string>& inodes) {
  std::error_code error;
  for (fs::directory_iterator it(process / "fd", error), end; !error && it != end;
       it.increment(error)) {
    std::error_code unreadable;
    if (inodes.contains(fs::read_symlink(it->path(), unreadable).string())) return true;
  }
  return false;
}

std::string FirstLine(const fs::path& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  return line;
}

/// The last part of a control group such as "0::/system.slice/snmptrapd.service".
std::string ServiceOf(const fs::path& process) {
  const std::string group = FirstLine(process / "cgroup");
  const std::string last = group.substr(group.rfind('/') + 1);
  return group.find("/system.slice/") != std::string::npos && last.ends_with(".service") ? last
                                                                                         : "";
}

}  // namespace

std::optional<PortHolder> FindPortHolder(std::uint16_t port) {
  std::set<std::string> inodes;
  CollectInodes("/proc/net/udp", port, inodes);
  CollectInodes("/proc/net/udp6", port, inodes);
  std::optional<PortHolder> holder;
  if (inodes.empty()) return holder;
  std::error_code error;
  for (fs::directory_iterator it("/proc", error), end; !error && it != end; it.increment(error)) {
    const std::string name = it->path().filename();
    int process = 0;
    if (std::from_chars(name.data(), name.data() + name.size(), process).ec != std::errc{})
      continue;
    if (!Holds(it->path(), inodes)) continue;
    holder = {process, FirstLine(it->path() / "comm"), ServiceOf(it->path())};
    if (process != kServiceManager) break;
  }
  return holder;
}

}  // namespace sentrel
