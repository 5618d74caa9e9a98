#include "snmp/trap_message.h"

#include <fmt/format.h>

#include <algorithm>
#include <random>

#include "common/failure.h"
#include "snmp/net_snmp.h"
#include "snmp/value_writer.h"

namespace sentrel {
namespace {

/// What UDP over IPv4 carries.
constexpr std::size_t kLargestMessage = 65'507;

struct Bindings {
  ~Bindings() { snmp_free_varbind(list); }
  netsnmp_variable_list* list = nullptr;
  /// No less than their bytes on the wire: a text of n characters has no more than n / 2 + 1
  /// subidentifiers of 5 bytes, and no value is longer than that or its text.
  std::size_t room = 0;
};

void Append(Bindings& bindings, const std::string& id, int typeCode, const std::string& value) {
  AppendBinding(bindings.list, id, typeCode, value);
  bindings.room += 64 + 3 * (id.size() + value.size());
}

long ChanceRequestId() {
  std::random_device random;
  return std::uniform_int_distribution<std::int32_t>(1)(random);
}

/// Enough room is given, so that no step fails: a failure would be noted in the library's shared
/// state.
std::vector<std::uint8_t> Encode(const std::string& community, const Bindings& bindings) {
  std::vector<std::uint8_t> bytes(128 + community.size() + bindings.room);
  std::string name = community;
  std::size_t nameLength = name.size();
  std::size_t room = bytes.size();
  long version = SNMP_VERSION_2c;
  std::uint8_t* const body = snmp_comstr_build(
      bytes.data(), &room, reinterpret_cast<u_char*>(name.data()), &nameLength, &version, 0);
  netsnmp_pdu pdu{};
  pdu.version = SNMP_VERSION_2c;
  pdu.command = SNMP_MSG_TRAP2;
  pdu.reqid = ChanceRequestId();
  pdu.variables = bindings.list;
  const std::uint8_t* const end = snmp_pdu_build(&pdu, body, &room);
  if (end == nullptr) throw Failure("The trap cannot be encoded.");
  // The length of the whole, now that it is known.
  constexpr std::size_t kHeader = 4;
  const std::size_t size = end - bytes.data();
  std::size_t all = bytes.size();
  asn_build_sequence(bytes.data(), &all, ASN_SEQUENCE | ASN_CONSTRUCTOR, size - kHeader);
  bytes.resize(size);
  return bytes;
}

}  // namespace

std::vector<std::uint8_t> TrapMessage(const std::string& community,
                                      const std::vector<std::string>& OIDs,
                                      const std::vector<std::string>& Values,
                                      const std::vector<std::int16_t>& DataTypes) {
  Bindings bindings;
  const std::size_t count = std::min({OIDs.size(), Values.size(), DataTypes.size()});
  for (std::size_t i = 0; i < count; ++i) Append(bindings, OIDs[i], DataTypes[i], Values[i]);
  std::vector<std::uint8_t> bytes = Encode(community, bindings);
  if (bytes.size() <= kLargestMessage) return bytes;
  throw Failure(fmt::format("The trap is too large to be sent: {} bytes of at most {}.",
                            bytes.size(), kLargestMessage));
}

}  // namespace sentrel
