#include "snmp/binding_reader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "snmp/binding.h"
#include "snmp/value_reader.h"

namespace sentrel {
namespace {

using ber::Bytes;
using ber::Element;

constexpr char kSysUpTime[] = "1.3.6.1.2.1.1.3.0";
constexpr char kSnmpTrapOid[] = "1.3.6.1.6.3.1.1.4.1.0";
constexpr char kSnmpTrapEnterprise[] = "1.3.6.1.6.3.1.1.4.3.0";
constexpr char kSnmpTrapAddress[] = "1.3.6.1.6.3.18.1.3.0";
/// The parent of coldStart to egpNeighborLoss, whose numbers are one higher than their generic trap
/// number.
constexpr char kSnmpTraps[] = "1.3.6.1.6.3.1.1.5.";
constexpr std::string_view kEnterpriseSpecific = "6";

constexpr char kNoName[] = "no name";

/// Where one binding of a trap is written.
struct Place {
  std::string& id;
  int& type;
  std::string& value;
};

Place PlaceOf(Trap& trap, std::size_t i) {
  return {trap.OIDs[i], trap.DataTypes[i], trap.Values[i]};
}

void Resize(Trap& trap, std::size_t count) {
  trap.OIDs.resize(count);
  trap.DataTypes.resize(count);
  trap.Values.resize(count);
}

/// The same at the end of the lists or within them.
Place PlaceAt(Trap& trap, std::size_t i) {
  if (i >= trap.OIDs.size()) Resize(trap, i + 1);
  return PlaceOf(trap, i);
}

void PutOdd(const Element& value, const Place& place) {
  place.type = value.FirstTag();
  OddText(value, place.value);
}

void PutValue(const Element& value, const Place& place) {
  place.type = value.FirstTag();
  ValueText(value, place.value);
}

/// For a value that is good only with this tag.
void PutValue(ber::Tag tag, const Element& value, const Place& place) {
  return value.FirstTag() == tag ? PutValue(value, place) : PutOdd(value, place);
}

void PutBinding(const Binding& binding, const Place& place) {
  const bool named =
      binding.name.FirstTag() == ber::kOid && OidText(binding.name.content, place.id);
  if (!named) OddText(binding.name, place.id);
  binding.value ? PutValue(*binding.value, place) : PutOdd(binding.whole, place);
}

void PutRest(Bytes rest, const Place& place) {
  place.id = kNoName;
  PutOdd({rest.first(1), rest.subspan(1)}, place);
}

/// Text has the length of its octets, hexadecimal never.
bool IsHexOctets(const Binding& binding, const std::string& text) {
  return binding.value && binding.value->FirstTag() == ber::kOctets &&
         binding.value->content.size() != text.size();
}

/// Fills the trap's lists from `first` on.
void PutBindings(Bytes list, std::size_t first, Trap& trap) {
  std::size_t i = first;
  trap.HexOctets.clear();
  while (const auto binding = TakeBinding(list)) {
    PutBinding(*binding, PlaceAt(trap, i));
    if (IsHexOctets(*binding, trap.Values[i])) trap.HexOctets.push_back(i);
    ++i;
  }
  if (!list.empty()) PutRest(list, PlaceAt(trap, i++));
  Resize(trap, i);
}

/// The parts of a version 1 PDU, in their order.
enum Part { kEnterprise, kAgentAddress, kGeneric, kSpecific, kTime, kBindings, kParts };
using Parts = std::array<Element, kParts>;

Parts PartsOf(Bytes pdu) {
  Parts parts;
  // Whoever gave the PDU has seen that all are there.
  for (Element& part : parts) part = *ber::TakeElement(pdu);
  return parts;
}

std::optional<std::string> TextWithTag(ber::Tag tag, const Element& value) {
  std::string text;
  if (value.FirstTag() != tag || !ValueText(value, text)) return std::nullopt;
  return text;
}

/// RFC 3584, section 3.1, (2) and (3).
std::optional<std::string> TrapOid(const Parts& parts) {
  const auto generic = TextWithTag(ber::kInteger, parts[kGeneric]);
  const auto specific = TextWithTag(ber::kInteger, parts[kSpecific]);
  const auto enterprise = TextWithTag(ber::kOid, parts[kEnterprise]);
  if (!generic || !specific || generic->size() != 1) return std::nullopt;
  if (*generic < kEnterpriseSpecific) {
    return kSnmpTraps + std::string(1, static_cast<char>((*generic)[0] + 1));
  }
  const bool named = *generic == kEnterpriseSpecific && enterprise && !specific->starts_with('-');
  return named ? std::optional(*enterprise + ".0." + *specific) : std::nullopt;
}

void PutTrapOid(const Parts& parts, Bytes pdu, const Place& place) {
  static constexpr std::uint8_t kTag[] = {ber::kTrapV1};
  place.id = kSnmpTrapOid;
  if (auto id = TrapOid(parts)) {
    place.type = ber::kOid;
    place.value = std::move(*id);
  } else {
    PutOdd(
        {kTag, pdu.first(parts[kTime].content.data() + parts[kTime].content.size() - pdu.data())},
        place);
  }
}

/// Appends the part as a binding, unless the PDU has one of that name.
void Append(const char* id, ber::Tag tag, const Element& part, Trap& trap) {
  if (std::find(trap.OIDs.begin(), trap.OIDs.end(), id) != trap.OIDs.end()) return;
  Resize(trap, trap.OIDs.size() + 1);
  const Place place = PlaceOf(trap, trap.OIDs.size() - 1);
  place.id = id;
  PutValue(tag, part, place);
}

bool TellsAgent(const Element& address, const Trap& trap) {
  const auto text = TextWithTag(ber::kIpAddress, address);
  return text != "0.0.0.0" && text != trap.SourceAddress;
}

}  // namespace

void ReadBindings(std::string_view encoded, Trap& trap) {
  PutBindings(ber::BytesOf(encoded), 0, trap);
}

std::optional<std::string> Version1TrapOid(std::string_view encoded) {
  return TrapOid(PartsOf(ber::BytesOf(encoded)));
}

void ReadVersion1Pdu(std::string_view encoded, Trap& trap) {
  const Bytes pdu = ber::BytesOf(encoded);
  const Parts parts = PartsOf(pdu);
  PutBindings(parts[kBindings].content, 2, trap);
  const Place upTime = PlaceOf(trap, 0);
  upTime.id = kSysUpTime;
  PutValue(ber::kTimeTicks, parts[kTime], upTime);
  PutTrapOid(parts, pdu, PlaceOf(trap, 1));
  if (TellsAgent(parts[kAgentAddress], trap)) {
    Append(kSnmpTrapAddress, ber::kIpAddress, parts[kAgentAddress], trap);
  }
  Append(kSnmpTrapEnterprise, ber::kOid, parts[kEnterprise], trap);
}

}  // namespace sentrel
