// From a datagram to the texts and the record of its row: whatever arrives, the parser survives,
// what it hands on is whole, the record keeps all of it, a message that the SNMP library takes
// reads as it reads there, and the library takes whatever has no odd values left.

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
#include "oracle/library_reading.h"
#include "snmp/binding.h"
#include "snmp/notification_parser.h"
#include "snmp/odd_values.h"
#include "snmp/snmp_library.h"
#include "snmp/value_reader.h"

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
      const bool dotted = id.find_first_not_of("0123456789.") == std::string::npos;
      Require(dotted || sentrel::IsOdd(id) || id == "no name");
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
  sentrel::Version3UserKeeper keeper{""};
  sentrel::SnmpLibrary library{folder.Path(), folder.Path(), keeper};
  sentrel::NotificationParser parser{library.Guard(),
                                     [this](const sentrel::ArrivedTrap& trap) {
                                       trap.Read(last);
                                       return rows.Take(last);
                                     },
                                     [](const auto&, auto) { return true; }};
};

/// What is left of a list of bindings where one has no value or no proper name.
sentrel::ber::Bytes BehindBindings(sentrel::ber::Bytes list) {
  std::string text;
  for (sentrel::ber::Bytes rest = list; !rest.empty(); list = rest) {
    const auto binding = sentrel::TakeBinding(rest);
    const bool whole = binding && binding->value && binding->name.FirstTag() == 6 &&
                       sentrel::OidText(binding->name.content, text);
    if (!whole) return list;
  }
  return {};
}

/// The library takes every list of bindings from which odd values are gone, unless it ends in less
/// than a binding.
void CheckNeutral(sentrel::ber::Bytes message) {
  sentrel::MessageFrame frame;
  sentrel::CommunityMessage read;
  const bool community = ReadFrame(message, frame) == sentrel::Outcome::kAccepted &&
                         ReadCommunityMessage(frame, read) == sentrel::Outcome::kAccepted;
  if (!community || read.pdu.tag == sentrel::ber::kTrapV1) return;
  std::vector<std::uint8_t> pdu(read.encodedPdu.begin(), read.encodedPdu.end());
  sentrel::NeutralizeOddValues(pdu);
  const auto neutral = sentrel::ReadPdu(pdu);
  Require(neutral && neutral->bindings.size() == read.pdu.bindings.size());
  constexpr std::size_t kSmallestBinding = 7;
  const std::size_t left = BehindBindings(neutral->bindings).size();
  Require(left < kSmallestBinding);
  if (left > 0) return;
  const std::size_t size = neutral->bindings.size();
  const auto octet = [](std::size_t number) { return static_cast<std::uint8_t>(number); };
  std::vector<std::uint8_t> plain = {
      0xA6, 0x82, octet((size + 13) >> 8), octet(size + 13), 2, 1, 1, 2, 1, 0, 2, 1, 0,
      0x30, 0x82, octet(size >> 8),        octet(size)};
  plain.insert(plain.end(), neutral->bindings.begin(), neutral->bindings.end());
  Require(sentrel::LibraryPduOf(plain) != nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Parser all;
  sentrel::Datagram datagram{.bytes = {data, size}, .peer = {}};
  datagram.peer.remote.v4.sin_family = AF_INET;
  datagram.peer.remoteLength = sizeof(sockaddr_in);
  CheckNeutral(datagram.bytes);
  const sentrel::Outcome outcome = all.parser.Parse(datagram);
  if (outcome == sentrel::Outcome::kRepeated) return 0;
  if (const auto library = sentrel::LibraryReading(datagram)) {
    Require(outcome == sentrel::Outcome::kAccepted);
    Require(Agree(all.last, *library));
  }
  return 0;
}
