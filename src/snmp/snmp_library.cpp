#include "snmp/snmp_library.h"

#include <vector>

#include "snmp/net_snmp.h"

namespace sentrel {
namespace {

constexpr char kName[] = "sentrel";

/// createUser lines, kept until all files are read: the library reads its state last, and the
/// keys in there must not win over a passphrase that was changed since.
std::vector<std::string>& CreateUserLines() {
  static std::vector<std::string> lines;
  return lines;
}

void KeepCreateUser(const char*, char* line) {
  CreateUserLines().emplace_back(line);
}

void CreateUsers() {
  for (std::string& line : CreateUserLines()) usm_parse_create_usmUser("createUser", line.data());
  CreateUserLines().clear();
}

void Ignore(const char*, char*) {}

/// Called when the library has registered its own tokens and has yet to read a file: no logOption
/// of an administrator's snmp.conf may bring the output back.
int IgnoreLogOption(int, int, void*, void*) {
  register_prenetsnmp_mib_handler("snmp", "logOption", Ignore, nullptr, nullptr);
  return SNMPERR_SUCCESS;
}

void Silence() {
  // With no handler at all the library would write to the standard error stream.
  netsnmp_register_loghandler(NETSNMP_LOGHANDLER_NONE, LOG_DEBUG);
  snmp_register_callback(SNMP_CALLBACK_LIBRARY, SNMP_CALLBACK_PRE_PREMIB_READ_CONFIG,
                         IgnoreLogOption, nullptr);
}

void LoadNoMibs() {
  std::string none;
  netsnmp_set_mib_directory(none.c_str());
  std::string noModules = "mibs :";
  netsnmp_config_remember(noModules.data());
}

void KeepStateIn(const std::string& folder) {
  // An empty name would be the root folder; below this one nothing can be made.
  set_persistent_directory(folder.empty() ? "/dev/null" : folder.c_str());
}

}  // namespace

SnmpLibrary::SnmpLibrary(const std::string& stateFolder, const std::string& configurationPath) {
  Silence();
  LoadNoMibs();
  KeepStateIn(stateFolder);
  if (!configurationPath.empty()) set_configuration_directory(configurationPath.c_str());
  init_usm_conf(kName);
  register_config_handler(kName, "createUser", KeepCreateUser, nullptr, nullptr);
  init_snmp(kName);
  CreateUsers();
  // The boots count must rise even if the program does not come to its end.
  snmp_store(kName);
}

SnmpLibrary::~SnmpLibrary() {
  // Writes the state too.
  snmp_shutdown(kName);
}

}  // namespace sentrel
