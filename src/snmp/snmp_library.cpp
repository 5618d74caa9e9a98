#include "snmp/snmp_library.h"

#include <unistd.h>

#include <filesystem>
#include <utility>

#include "common/atomic_file.h"
#include "common/failure.h"
#include "snmp/configured_users.h"
#include "snmp/engine_state.h"
#include "snmp/net_snmp.h"
#include "snmp/version3_users.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "sentrel";
constexpr char kStateHeader[] =
    "# Sentrel rewrites this file while it runs and when it ends. Edit it while Sentrel does not "
    "run.\n";
/// It holds keys.
constexpr mode_t kStateMode = 0600;
/// RFC 5591: for transports that a trap socket does not have.
constexpr int kTransportSecurityModel = 4;

void Ignore(const char*, char*) {}

/// Called when the library has registered its own words and has yet to read a file.
int RegisterWords(int, int, void*, void*) {
  // No logOption of an administrator's snmp.conf may bring the output back.
  register_prenetsnmp_mib_handler("snmp", "logOption", Ignore, nullptr, nullptr);
  ReadConfiguredUsers();
  ReadKeptState();
  return SNMPERR_SUCCESS;
}

void Silence() {
  // With no handler at all the library would write to the standard error stream.
  netsnmp_register_loghandler(NETSNMP_LOGHANDLER_NONE, LOG_DEBUG);
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

/// What is there and cannot be read must not be replaced.
std::string StateFileIn(const std::string& folder) {
  if (folder.empty()) return "";
  std::error_code ignored;
  if (fs::create_directories(folder, ignored)) {
    fs::permissions(folder, fs::perms::owner_all, ignored);
  }
  const std::string path = folder + "/" + kName + ".conf";
  const bool isMissing = access(path.c_str(), F_OK) != 0;
  return isMissing || access(path.c_str(), R_OK) == 0 ? path : "";
}

void Set(int option, bool value) {
  netsnmp_ds_set_boolean(NETSNMP_DS_LIBRARY_ID, option, value ? 1 : 0);
}

}  // namespace

SnmpLibrary::SnmpLibrary(const std::string& stateFolder, const std::string& configurationPath,
                         Version3UserKeeper& keeper)
    : keeper_(keeper), stateFile_(StateFileIn(stateFolder)) {
  Silence();
  LoadNoMibs();
  // Set by the object before this one.
  Set(NETSNMP_DS_LIB_DONT_PERSIST_STATE, false);
  KeepStateIn(stateFolder);
  if (!configurationPath.empty()) set_configuration_directory(configurationPath.c_str());
  snmp_register_callback(SNMP_CALLBACK_LIBRARY, SNMP_CALLBACK_PRE_PREMIB_READ_CONFIG, RegisterWords,
                         nullptr);
  SetUpEngineIdAfterReading();
  init_usm_conf(kName);
  init_snmp(kName);
  ContinueBoots();
  unregister_sec_mod(kTransportSecurityModel);
  // Nobody asks a receiver of traps which engines it knows (RFC 5343).
  Set(NETSNMP_DS_LIB_NO_DISCOVERY, true);
  SetUpEngine();
}

void SnmpLibrary::SetUpEngine() {
  const auto createUsers = [this] {
    CreateConfiguredUsers();
    engineLines_ = EngineLines();
  };
  createUsers();
  replays_ = std::make_unique<ReplayCheck>(OwnEngineId(), HeardBefore());
  if (WriteState()) {
    snmp_clean_persistent(kName);
  } else {
    stateFile_.clear();
    TakeNewEngineId();
    createUsers();
    replays_ = std::make_unique<ReplayCheck>(OwnEngineId(), HeardBefore());
  }
  // From here on the library keeps its hands off the file.
  Set(NETSNMP_DS_LIB_DONT_PERSIST_STATE, true);
  writer_ = std::make_unique<StateWriter>([this] { WriteState(); });
  Version3Users users(OwnEngineId(), ConfiguredLevels());
  keeper_.SetUsersFromFile(users.Descriptions());
  guard_ = std::make_unique<Version3Guard>(std::move(users), keeper_, *replays_,
                                           [this] { writer_->Changed(); });
}

bool SnmpLibrary::WriteState() const {
  return !stateFile_.empty() && Attempt([this] {
    WriteFile(stateFile_, kStateHeader + engineLines_ + HeardLines(replays_->Newest()), kStateMode);
  });
}

SnmpLibrary::~SnmpLibrary() {
  guard_.reset();
  writer_.reset();
  WriteState();
  snmp_shutdown(kName);
}

}  // namespace sentrel
