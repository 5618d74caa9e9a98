#include "snmp/engine_state.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <random>
#include <set>
#include <sstream>

#include "snmp/net_snmp.h"

namespace sentrel {
namespace {

using namespace std::string_literals;

constexpr char kName[] = "sentrel";

/// What the files say. The library calls the readers of lines, and has no place for an object.
struct KeptState {
  std::string engineId;
  /// 0 where none was kept.
  long boots = 0;
  HeardEngines heard;
  std::set<std::string> forgotten;
};

KeptState& Kept() {
  static KeptState state;
  return state;
}

/// Reads the octets at the front of a line, as the library writes them, and moves behind them.
/// Empty where they are not an engine ID.
std::string TakeEngineId(const char*& line) {
  std::array<u_char, kLongestEngineId + 1> buffer;
  u_char* octets = buffer.data();
  std::size_t length = buffer.size();
  line = read_config_read_octet_string_const(line, &octets, &length);
  if (length > kLongestEngineId) return "";
  return {buffer.begin(), buffer.begin() + length};
}

void ReadEngineId(const char*, char* line) {
  const char* rest = line;
  Kept().engineId = TakeEngineId(rest);
}

void SetEngineId(const std::string& id) {
  set_exact_engineID(reinterpret_cast<const u_char*>(id.data()), id.size());
}

/// In the SNMP library's own form (RFC 3411, section 5: its enterprise, then a format of its own).
std::string RandomEngineId() {
  std::string id = "\x80\x00\x1F\x88\x80"s;
  std::random_device random;
  while (id.size() < 17) id += static_cast<char>(random());
  return id;
}

/// The library would make its own ID, which in a process that had another is not always unique.
int SetUpEngineId(int, int, void*, void*) {
  const bool isConfigured = !OwnEngineId().empty();
  if (!isConfigured) SetEngineId(Kept().engineId.empty() ? RandomEngineId() : Kept().engineId);
  return SNMPERR_SUCCESS;
}

void ReadBoots(const char*, char* line) {
  Kept().boots = std::strtol(line, nullptr, 10);
}

/// The library checks the time window of informs by it.
void TellOwnTime() {
  const std::string id = OwnEngineId();
  set_enginetime(reinterpret_cast<const u_char*>(id.data()), static_cast<u_int>(id.size()),
                 snmpv3_local_snmpEngineBoots(), snmpv3_local_snmpEngineTime(), 1);
}

void ReadHeard(const char*, char* line) {
  const char* rest = line;
  const std::string engine = TakeEngineId(rest);
  if (engine.empty() || rest == nullptr) return;
  EngineMoment newest{};
  std::istringstream numbers(rest);
  const bool isRead = static_cast<bool>(numbers >> newest.boots >> newest.time);
  if (isRead && newest.boots <= ReplayCheck::kMostBoots) Kept().heard[engine] = newest;
}

void ReadForgotten(const char*, char* line) {
  const char* rest = line;
  Kept().forgotten.insert(TakeEngineId(rest));
}

std::string Octets(const void* octets, std::size_t length) {
  std::string text(2 * length + sizeof "0x\"\"", '\0');
  char* const end =
      read_config_save_octet_string(text.data(), static_cast<const u_char*>(octets), length);
  text.resize(end - text.data());
  return text;
}

std::string Text(const char* text) {
  return Octets(text, text == nullptr ? 0 : std::strlen(text));
}

std::string Oid(const oid* id, std::size_t length) {
  constexpr std::size_t kLongestPart = sizeof ".18446744073709551615";
  std::string text(kLongestPart * length + sizeof "NULL", '\0');
  char* const end = read_config_save_objid(text.data(), const_cast<oid*>(id), length);
  text.resize(end - text.data());
  return text;
}

/// As the library's own reader of usmUser lines wants it.
std::string UserLine(const usmUser& user) {
  return fmt::format(
      "usmUser {} {} {} {} {} {} {} {} {} {} {}\n", user.userStatus, user.userStorageType,
      Octets(user.engineID, user.engineIDLen), Text(user.name), Text(user.secName),
      Oid(user.cloneFrom, user.cloneFromLen), Oid(user.authProtocol, user.authProtocolLen),
      Octets(user.authKey, user.authKeyLen), Oid(user.privProtocol, user.privProtocolLen),
      Octets(user.privKey, user.privKeyLen),
      Octets(user.userPublicString, user.userPublicStringLen));
}

}  // namespace

void ReadKeptState() {
  Kept() = {};
  register_prenetsnmp_mib_handler(kName, "oldEngineID", ReadEngineId, nullptr, nullptr);
  register_config_handler(kName, "engineBoots", ReadBoots, nullptr, nullptr);
  register_config_handler(kName, "heardEngine", ReadHeard, nullptr, nullptr);
  register_config_handler(kName, "forgetEngine", ReadForgotten, nullptr, nullptr);
}

HeardEngines HeardBefore() {
  HeardEngines heard = Kept().heard;
  std::erase_if(heard, [](const auto& engine) { return Kept().forgotten.contains(engine.first); });
  return heard;
}

std::string OwnEngineId() {
  std::string id(kLongestEngineId + 1, '\0');
  id.resize(snmpv3_get_engineID(reinterpret_cast<u_char*>(id.data()), id.size()));
  return id;
}

std::uint32_t OwnBoots() {
  return static_cast<std::uint32_t>(snmpv3_local_snmpEngineBoots());
}

void SetUpEngineIdAfterReading() {
  snmp_register_callback(SNMP_CALLBACK_LIBRARY, SNMP_CALLBACK_POST_PREMIB_READ_CONFIG,
                         SetUpEngineId, nullptr);
}

void TakeNewEngineId() {
  SetEngineId(RandomEngineId());
  TellOwnTime();
}

void ContinueBoots() {
  if (Kept().engineId != OwnEngineId()) return;
  if (Kept().boots < 1) return TakeNewEngineId();
  // The library adds one, without a look at the end of the numbers.
  constexpr long kHighest = ReplayCheck::kMostBoots - 1;
  std::string kept = std::to_string(std::min(Kept().boots, kHighest));
  engineBoots_conf("engineBoots", kept.data());
  TellOwnTime();
}

std::string EngineLines() {
  const std::string engine = OwnEngineId();
  std::string lines =
      fmt::format("engineBoots {}\noldEngineID {}\n", snmpv3_local_snmpEngineBoots(),
                  Octets(engine.data(), engine.size()));
  for (const usmUser* user = usm_get_userList(); user != nullptr; user = user->next) {
    if (user->userStorageType == ST_NONVOLATILE) lines += UserLine(*user);
  }
  return lines;
}

std::string HeardLines(const HeardEngines& engines) {
  std::string lines;
  for (const auto& [engine, newest] : engines) {
    lines += fmt::format("heardEngine {} {} {}\n", Octets(engine.data(), engine.size()),
                         newest.boots, newest.time);
  }
  return lines;
}

}  // namespace sentrel
