#include "snmp/port_permission.h"

#include <fmt/format.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace sentrel {
namespace {

/// Of the package; its members may start the helper.
constexpr const char* kPackageGroup = "sentrel";

/// As a shell takes it literally.
std::string Quoted(const std::string& word) {
  constexpr const char* kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_./+@";
  if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos) return word;
  std::string quoted = "'";
  for (const char c : word) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + "'";
}

bool Has(const std::vector<gid_t>& groups, gid_t group) {
  return std::find(groups.begin(), groups.end(), group) != groups.end();
}

bool MayExecute(const struct stat& file, const PortUser& user) {
  if (file.st_uid == user.id) return (file.st_mode & S_IXUSR) != 0;
  if (Has(user.groups, file.st_gid)) return (file.st_mode & S_IXGRP) != 0;
  return (file.st_mode & S_IXOTH) != 0;
}

/// Packages have /usr, all but /usr/local (Filesystem Hierarchy Standard, section 4.1).
bool IsOfPackage(const std::string& file) {
  return file.starts_with("/usr/") && !file.starts_with("/usr/local/");
}

bool HasCapability(const std::string& file) {
  return getxattr(file.c_str(), "security.capability", nullptr, 0) > 0;
}

/// Whether the system's list has the user in the group, perhaps for later sessions only.
bool IsMember(const std::string& user, gid_t group) {
  const passwd* const entry = getpwnam(user.c_str());
  if (entry != nullptr && entry->pw_gid == group) return true;
  const struct group* const members = getgrgid(group);
  if (members == nullptr) return false;
  for (char* const* member = members->gr_mem; *member != nullptr; ++member) {
    if (user == *member) return true;
  }
  return false;
}

std::string ThisProgram() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

/// A new member is one from the next login on, except in a session that sg starts.
std::string HowToStart(const std::string& group) {
  return fmt::format(
      "log in anew, or start the program from this session with:\r\n"
      "sg {} -c {}",
      Quoted(group), Quoted(Quoted(ThisProgram())));
}

std::string HowToJoin(gid_t id, const std::string& group, const PortUser& user) {
  if (IsMember(user.name, id)) {
    return fmt::format("You are in the group {}, but this session is older than that: {}", group,
                       HowToStart(group));
  }
  return fmt::format(
      "Members of the group {0} may. An administrator makes you one with:\r\n"
      "sudo adduser {1} {2}\r\n\r\n"
      "Then {3}",
      group, Quoted(user.name), Quoted(group), HowToStart(group));
}

/// Where the package was told that nobody but root may, or could not give the right.
std::string HowToReconfigure(const PortUser& user) {
  const std::string command =
      "Only root may on this machine. An administrator changes that with:\r\n"
      "sudo dpkg-reconfigure sentrel";
  const struct group* const group = getgrnam(kPackageGroup);
  if (group != nullptr && Has(user.groups, group->gr_gid)) {
    return command + "\r\n\r\nThen start the program again.";
  }
  return fmt::format("{} && sudo adduser {} {}\r\n\r\nThen {}", command, Quoted(user.name),
                     kPackageGroup, HowToStart(kPackageGroup));
}

}  // namespace

PortUser ThisUser() {
  PortUser user;
  user.id = geteuid();
  if (const passwd* const entry = getpwuid(user.id)) user.name = entry->pw_name;
  user.groups.resize(std::max(getgroups(0, nullptr), 0));
  user.groups.resize(
      std::max(getgroups(static_cast<int>(user.groups.size()), user.groups.data()), 0));
  user.groups.push_back(getegid());
  return user;
}

std::string HowToBeLetIn(const std::string& helper, const PortUser& user) {
  const char* const asRoot = "Start the program with sudo.";
  struct stat file {};
  if (helper.empty() || stat(helper.c_str(), &file) != 0) return asRoot;
  if (!MayExecute(file, user)) {
    const struct group* const group = getgrgid(file.st_gid);
    const bool groupMay = group != nullptr && file.st_gid != 0 && (file.st_mode & S_IXGRP) != 0;
    return groupMay ? HowToJoin(file.st_gid, group->gr_name, user) : asRoot;
  }
  if (HasCapability(helper)) {
    return fmt::format(
        "Its helper {} has the right, but cannot use it here: its file system may be mounted with "
        "nosuid, or this session may gain no rights, as in a container.",
        helper);
  }
  if (IsOfPackage(helper)) return HowToReconfigure(user);
  if (file.st_uid != user.id) return asRoot;
  return fmt::format(
      "Give its helper the right, for you alone, with:\r\n"
      "chmod 700 {0} && sudo setcap cap_net_bind_service=ep {0}\r\n\r\n"
      "Then start the program again.",
      Quoted(helper));
}

}  // namespace sentrel
