#include "details/trap_details.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "common/moment_text.h"
#include "common/visible_text.h"
#include "snmp/binding_reader.h"
#include "snmp/octet_text.h"
#include "snmp/value_reader.h"

namespace sentrel {
namespace {

using namespace std::string_view_literals;

constexpr auto kTrapOid = "\x2B\x06\x01\x06\x03\x01\x01\x04\x01\x00"sv;
constexpr auto kTrapEnterprise = "\x2B\x06\x01\x06\x03\x01\x01\x04\x03\x00"sv;
constexpr auto kTrapAddress = "\x2B\x06\x01\x06\x03\x12\x01\x03\x00"sv;

/// Enterprises are one level below it.
constexpr std::array<std::uint32_t, 6> kEnterprises = {1, 3, 6, 1, 4, 1};

constexpr std::array kGenericTraps = {
    "coldStart",       "warmStart",         "linkDown", "linkUp", "authenticationFailure",
    "egpNeighborLoss", "enterpriseSpecific"};

/// Of what is not looked up in the MIB database.
std::string Plain(const ber::Element& value) {
  std::string text;
  ValueText(value, text);
  return text;
}

/// Nothing where the value is no good one of the type.
std::string TextWithTag(ber::Tag tag, const ber::Element& value) {
  std::string text;
  return value.FirstTag() == tag && ValueText(value, text) ? text : "";
}

const char* LevelText(SecurityLevel level) {
  switch (level) {
    case SecurityLevel::kNoAuthNoPriv:
      return "noAuthNoPriv (neither signed nor encrypted)";
    case SecurityLevel::kAuthNoPriv:
      return "authNoPriv (signed, not encrypted)";
    case SecurityLevel::kAuthPriv:
      return "authPriv (signed and encrypted)";
  }
  return "";
}

const char* VersionText(SnmpVersion version) {
  return version == SnmpVersion::k1 ? "1" : version == SnmpVersion::k2c ? "2c" : "3";
}

bool IsBelowEnterprises(const OidNumbers& oid) {
  return oid.size() > kEnterprises.size() &&
         std::equal(kEnterprises.begin(), kEnterprises.end(), oid.begin());
}

std::string Visible(std::string text) {
  return VisibleText(std::move(text));
}

}  // namespace

TrapDetails::TrapDetails(std::shared_ptr<const ArrivedTrap> trap, MibLibrary& names,
                         const MibFacts& facts)
    : trap_(std::move(trap)),
      words_(names, facts),
      facts_(facts),
      parts_(PartsOf(*trap_)),
      bindings_(parts_.bindings.size()) {
  AddHead();
}

void TrapDetails::Add(const char* name, const std::string& value,
                      const std::optional<MessagePart>& part) {
  head_.push_back({.name = name,
                   .oid = "",
                   .type = part ? TypeName(part->element) : "",
                   .value = Visible(value),
                   .bytes = part ? part->bytes : ByteRange()});
}

void TrapDetails::AddOid(const char* name, const std::string& oid, const ByteRange& bytes) {
  const OidNumbers numbers = NumbersOf(oid);
  const NodeFacts node = facts_.FactsOf(numbers).node;
  std::string value = words_.NameOf(oid);
  if (!node.module.empty()) value.append(" (").append(node.module).append(")");
  head_.push_back({.name = name,
                   .oid = oid,
                   .type = "OBJECT IDENTIFIER",
                   .value = Visible(std::move(value)),
                   .bytes = bytes});
}

void TrapDetails::AddHead() {
  AddNotification();
  AddSender();
  const bool isVersion3 = Version() == SnmpVersion::k3;
  Add(isVersion3 ? "User" : "Community", std::string(trap_->Community()), parts_.community);
  AddMessageHead();
  AddVersion1Head();
  if (!parts_.rest.Size()) return;
  head_.push_back({.name = "Not readable",
                   .oid = "",
                   .type = "",
                   .value = "The end of the list holds no binding.",
                   .bytes = parts_.rest});
}

void TrapDetails::AddNotification() {
  std::string oid;
  ByteRange bytes;
  if (!parts_.version1Pdu.empty()) {
    oid = Version1TrapOid(ber::TextOf(parts_.version1Pdu)).value_or("");
    bytes = {parts_.enterprise->bytes.begin, parts_.specificTrap->bytes.end};
  } else if (const BindingPart* const binding = Find(kTrapOid); binding && binding->binding.value) {
    oid = TextWithTag(ber::kOid, *binding->binding.value);
    bytes = binding->bytes;
  }
  if (oid.empty()) return Add("Notification", "not told");
  AddOid("Notification", oid, bytes);
  std::string enterprise;
  if (parts_.enterprise) {
    enterprise = TextWithTag(ber::kOid, parts_.enterprise->element);
    bytes = parts_.enterprise->bytes;
  } else if (const BindingPart* const binding = Find(kTrapEnterprise);
             binding && binding->binding.value) {
    enterprise = TextWithTag(ber::kOid, *binding->binding.value);
    bytes = binding->bytes;
  }
  OidNumbers maker = NumbersOf(oid);
  if (!enterprise.empty()) {
    AddOid("Enterprise", enterprise, bytes);
    if (IsBelowEnterprises(NumbersOf(enterprise))) maker = NumbersOf(enterprise);
  }
  if (!IsBelowEnterprises(maker)) return;
  maker.resize(kEnterprises.size() + 1);
  AddOid("Maker", Dotted(maker), {});
}

void TrapDetails::AddSender() {
  const std::string source(trap_->SourceAddress());
  const BindingPart* const told = Find(kTrapAddress);
  const bool isTold = told != nullptr && told->binding.value.has_value();
  std::optional<MessagePart> agent = parts_.agentAddress;
  if (isTold) agent = {told->bytes, *told->binding.value};
  const std::string address = agent ? TextWithTag(ber::kIpAddress, agent->element) : "";
  Add("Sender", source);
  if (address.empty()) return;
  Add("Agent address", address, agent);
  if (address != source && address != "0.0.0.0") {
    Add("Relay", source + ", which passed it on for the agent");
  }
}

void TrapDetails::AddMessageHead() {
  Add("Version", VersionText(Version()), parts_.version);
  if (Version() == SnmpVersion::k3) Add("Security level", LevelText(trap_->Envelope().level));
  if (parts_.requestId) {
    Add("Kind", parts_.isInform ? "inform, which was answered" : "trap");
    Add("Request ID", Plain(parts_.requestId->element), parts_.requestId);
  }
  if (parts_.contextEngine) {
    Add("Context engine", OctetText(parts_.contextEngine->element.content), parts_.contextEngine);
  }
  if (parts_.contextName && !parts_.contextName->element.content.empty()) {
    Add("Context name", OctetText(parts_.contextName->element.content), parts_.contextName);
  }
  const auto at = trap_->Envelope().receivedAt;
  if (at.time_since_epoch().count() == 0) return;
  Add("Arrival", TimeText(std::chrono::time_point_cast<std::chrono::system_clock::duration>(at)));
}

void TrapDetails::AddVersion1Head() {
  if (!parts_.timeStamp) return;
  std::string generic = Plain(parts_.genericTrap->element);
  for (std::size_t i = 0; i < kGenericTraps.size(); ++i) {
    if (generic == std::to_string(i)) {
      generic = fmt::format("{}({})", kGenericTraps[i], generic);
      break;
    }
  }
  Add("Generic trap", generic, parts_.genericTrap);
  Add("Specific trap", Plain(parts_.specificTrap->element), parts_.specificTrap);
  Add("Time stamp", words_.Of(parts_.timeStamp->element, {}, kMostShownOctets), parts_.timeStamp);
}

const BindingPart* TrapDetails::Find(std::string_view encodedName) const {
  const auto found = std::ranges::find_if(parts_.bindings, [&](const BindingPart& part) {
    return part.binding.name.FirstTag() == ber::kOid &&
           ber::TextOf(part.binding.name.content) == encodedName;
  });
  return found == parts_.bindings.end() ? nullptr : &*found;
}

const DetailLine& TrapDetails::Line(std::size_t line) const {
  if (line < head_.size()) return head_[line];
  auto& made = bindings_.at(line - head_.size());
  if (!made) {
    made = std::make_unique<const DetailLine>(MakeBinding(parts_.bindings[line - head_.size()]));
  }
  return *made;
}

DetailLine TrapDetails::MakeBinding(const BindingPart& part) const {
  const Binding& binding = part.binding;
  DetailLine line{.name = "", .oid = "", .type = "", .value = "", .bytes = part.bytes, .parts = {}};
  const bool isNamed =
      binding.name.FirstTag() == ber::kOid && OidText(binding.name.content, line.oid);
  ObjectFacts facts;
  if (isNamed) {
    const OidNumbers numbers = NumbersOf(line.oid);
    facts = facts_.FactsOf(numbers);
    line.name = Visible(words_.NameOf(line.oid));
    line.parts = IndexLines(facts, numbers);
  } else {
    OddText(binding.name, line.name);
    line.oid.clear();
  }
  const ber::Element& value = binding.value ? *binding.value : binding.whole;
  line.type = binding.value ? TypeName(value) : "no value";
  line.value = Visible(words_.Of(value, facts.node, kMostShownOctets));
  return line;
}

std::vector<DetailLine> TrapDetails::IndexLines(const ObjectFacts& facts,
                                                const OidNumbers& oid) const {
  std::vector<DetailLine> lines;
  const auto behind = std::span(oid).subspan(std::min(facts.node.oid.size(), oid.size()));
  for (const IndexPart& part : IndexParts(facts.indexes, behind)) {
    lines.push_back({.name = Visible(part.object->name),
                     .oid = Dotted(part.object->oid),
                     .type = "index",
                     .value = Visible(words_.Of(part))});
  }
  return lines;
}

std::string TrapDetails::WholeValue(std::size_t line) const {
  if (line < head_.size()) return head_[line].value;
  const Binding& binding = parts_.bindings.at(line - head_.size()).binding;
  const OidNumbers oid = NumbersOf(binding.name.content);
  const ber::Element& value = binding.value ? *binding.value : binding.whole;
  return Visible(words_.Of(value, facts_.FactsOf(oid).node, value.content.size()));
}

std::optional<std::size_t> TrapDetails::LineAt(std::size_t byte) const {
  const auto behind = std::ranges::upper_bound(
      parts_.bindings, byte, {}, [](const BindingPart& part) { return part.bytes.begin; });
  if (behind != parts_.bindings.begin() && (behind - 1)->bytes.Holds(byte)) {
    return head_.size() + static_cast<std::size_t>(behind - 1 - parts_.bindings.begin());
  }
  // The smallest, where one is part of another.
  std::optional<std::size_t> found;
  for (std::size_t i = 0; i < head_.size(); ++i) {
    const bool isSmaller = !found || head_[i].bytes.Size() < head_[*found].bytes.Size();
    if (head_[i].bytes.Holds(byte) && isSmaller) found = i;
  }
  return found;
}

}  // namespace sentrel
