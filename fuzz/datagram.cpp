// From a datagram to the texts and the record of its row: whatever arrives, the parser survives,
// what it hands on is whole, the record keeps all of it, and a plain trap reads as the SNMP library
// reads it.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "common/text.h"
#include "console/row_record.h"
#include "console/trap_texts.h"
#include "fakes/fake_registry.h"
#include "mib/library.h"
#include "snmp/notification_parser.h"
#include "snmp/plain_trap.h"
#include "snmp/snmp_library.h"

namespace {

namespace fs = std::filesystem;

/// Users of the engine that the version 3 messages of the corpus come from.
constexpr char kUsers[] =
    "createUser -e 0x8000000001020304 plain\n"
    "createUser -e 0x8000000001020304 sha SHA auth-pass-phrase\n"
    "createUser -e 0x8000000001020304 aes SHA-256 auth-pass-phrase AES priv-pass-phrase\n";

void Require(bool condition) {
  if (!condition) std::abort();
}

/// The first line is the address, and no other line that has anything on it begins before the
/// 19th column.
void RequireIndented(std::string_view entry, std::string_view address) {
  const auto lines = sentrel::SplitLines(entry);
  Require(lines.front() == address);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    Require(lines[i].empty() || lines[i].starts_with(std::string(18, ' ')));
  }
}

class Folder {
 public:
  Folder() {
    std::string name = fs::temp_directory_path() / "sentrel-fuzz-XXXXXX";
    Require(mkdtemp(name.data()) != nullptr);
    path_ = name;
    std::ofstream(fs::path(path_) / "sentrel.conf") << kUsers;
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

/// Makes rows of traps, with names from the built-in modules.
class Rows {
 public:
  bool Take(const sentrel::Trap& trap) {
    const std::size_t bindings = trap.OIDs.size();
    Require(trap.DataTypes.size() == bindings && trap.Values.size() == bindings);
    for (const std::string& id : trap.OIDs) {
      Require(id.find_first_not_of("0123456789.") == std::string::npos);
    }
    for (const bool raw : {false, true}) {
      RequireIndented(DetailText(trap, raw, lookup_), trap.SourceAddress);
    }
    decoder_.CheckCacheSize();
    Require(sentrel::ReadRowRecord(sentrel::RowRecord(trap)) == trap);
    return true;
  }

 private:
  sentrel::FakeRegistry registry_;
  sentrel::Settings settings_{registry_};
  sentrel::mib::Library mibs_{{.builtInImage = BUILT_IN_MODULES, .folders = {}, .cacheFile = {}},
                              [] {}};
  sentrel::Decoder decoder_{mibs_, settings_};
  sentrel::OidLookup lookup_{decoder_};
};

struct Parser {
  Rows rows;
  sentrel::Trap last;
  Folder folder;
  sentrel::SnmpLibrary library{folder.Path(), folder.Path()};
  sentrel::NotificationParser parser{[this](const sentrel::ArrivedTrap& trap) {
                                       trap.Read(last);
                                       return rows.Take(last);
                                     },
                                     [](const auto&, auto) { return true; }};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Parser all;
  sentrel::Datagram datagram{.bytes = {data, size}, .peer = {}};
  datagram.peer.remote.v4.sin_family = AF_INET;
  datagram.peer.remoteLength = sizeof(sockaddr_in);
  if (sentrel::ArrivedTrap arrived; TakePlainTrap(datagram, arrived)) {
    sentrel::Trap plain;
    arrived.Read(plain);
    Require(all.parser.ParseByLibrary(datagram) == sentrel::Outcome::kAccepted);
    Require(all.last == plain);
  }
  all.parser.Parse(datagram);
  return 0;
}
