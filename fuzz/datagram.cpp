// From a datagram to a trap: whatever arrives, the parser survives, what it hands on is whole, and
// a plain trap reads as the SNMP library reads it.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "snmp/notification_parser.h"
#include "snmp/snmp_library.h"

namespace {

namespace fs = std::filesystem;

/// Users of the engine that the version 3 messages of the corpus come from.
constexpr char kUsers[] =
    "createUser -e 0x8000000001020304 plain\n"
    "createUser -e 0x8000000001020304 sha SHA auth-pass-phrase\n"
    "createUser -e 0x8000000001020304 aes SHA-256 auth-pass-phrase AES priv-pass-phrase\n";

class Folder {
 public:
  Folder() {
    std::string name = fs::temp_directory_path() / "sentrel-fuzz-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) std::abort();
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

bool TakeWhole(const sentrel::Trap& trap) {
  const std::size_t bindings = trap.OIDs.size();
  if (trap.DataTypes.size() != bindings || trap.Values.size() != bindings) std::abort();
  for (const std::string& id : trap.OIDs) {
    if (id.find_first_not_of("0123456789.") != std::string::npos) std::abort();
  }
  return true;
}

struct Parser {
  Folder folder;
  sentrel::SnmpLibrary library{folder.Path(), folder.Path()};
  sentrel::NotificationParser parser{TakeWhole, [](const auto&, auto) { return true; }};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Parser all;
  sentrel::Datagram datagram{.bytes = {data, size}, .peer = {}};
  datagram.peer.remote.v4.sin_family = AF_INET;
  datagram.peer.remoteLength = sizeof(sockaddr_in);
  all.parser.Parse(datagram);
  return 0;
}
