#include "mib/keyword.h"

#include <array>
#include <cstddef>

namespace sentrel::mib {
namespace {

struct Entry {
  std::string_view word;
  Keyword keyword = Keyword::None;
};

constexpr Entry kKeywords[] = {
    {"ACCESS", Keyword::Access},
    {"AGENT-CAPABILITIES", Keyword::AgentCapabilities},
    {"AUGMENTS", Keyword::Augments},
    {"BEGIN", Keyword::Begin},
    {"BIT", Keyword::Bit},
    {"BITS", Keyword::Bits},
    {"CHOICE", Keyword::Choice},
    {"Counter", Keyword::Counter},
    {"Counter32", Keyword::Counter32},
    {"Counter64", Keyword::Counter64},
    {"DEFINITIONS", Keyword::Definitions},
    {"DISPLAY-HINT", Keyword::DisplayHint},
    {"END", Keyword::End},
    {"ENTERPRISE", Keyword::Enterprise},
    {"EXPLICIT", Keyword::Explicit},
    {"EXPORTS", Keyword::Exports},
    {"FROM", Keyword::From},
    {"Gauge", Keyword::Gauge},
    {"Gauge32", Keyword::Gauge32},
    {"IDENTIFIER", Keyword::Identifier},
    {"IMPLICIT", Keyword::Implicit},
    {"IMPORTS", Keyword::Imports},
    {"INDEX", Keyword::Index},
    {"INTEGER", Keyword::Integer},
    {"Integer32", Keyword::Integer32},
    {"IpAddress", Keyword::IpAddress},
    {"LAST-UPDATED", Keyword::LastUpdated},
    {"MACRO", Keyword::Macro},
    {"MAX-ACCESS", Keyword::MaxAccess},
    {"MODULE-COMPLIANCE", Keyword::ModuleCompliance},
    {"MODULE-IDENTITY", Keyword::ModuleIdentity},
    {"NOTIFICATION-GROUP", Keyword::NotificationGroup},
    {"NOTIFICATION-TYPE", Keyword::NotificationType},
    {"NetworkAddress", Keyword::NetworkAddress},
    {"OBJECT", Keyword::Object},
    {"OBJECT-GROUP", Keyword::ObjectGroup},
    {"OBJECT-IDENTITY", Keyword::ObjectIdentity},
    {"OBJECT-TYPE", Keyword::ObjectType},
    {"OBJECTS", Keyword::Objects},
    {"OCTET", Keyword::Octet},
    {"OF", Keyword::Of},
    {"Opaque", Keyword::Opaque},
    {"SEQUENCE", Keyword::Sequence},
    {"SIZE", Keyword::Size},
    {"STRING", Keyword::String},
    {"SYNTAX", Keyword::Syntax},
    {"TEXTUAL-CONVENTION", Keyword::TextualConvention},
    {"TRAP-TYPE", Keyword::TrapType},
    {"TimeTicks", Keyword::TimeTicks},
    {"UInteger32", Keyword::UInteger32},
    {"UNITS", Keyword::Units},
    {"Unsigned32", Keyword::Unsigned32},
    {"VARIABLES", Keyword::Variables},
};

constexpr size_t kSlots = 256;

constexpr size_t SlotOf(std::string_view word) {
  const auto letter = [](char c) { return static_cast<size_t>(static_cast<unsigned char>(c)); };
  return (word.size() * 37 + letter(word.front()) * 5 + letter(word.back()) * 3) % kSlots;
}

/// Open addressing: a keyword is in its slot or in one of those right after it.
constexpr auto MakeTable() {
  std::array<Entry, kSlots> table{};
  for (const Entry& entry : kKeywords) {
    size_t slot = SlotOf(entry.word);
    while (!table[slot].word.empty()) slot = (slot + 1) % kSlots;
    table[slot] = entry;
  }
  return table;
}

constexpr auto kTable = MakeTable();

}  // namespace

Keyword KeywordOf(std::string_view word) {
  if (word.empty() || word[0] < 'A' || word[0] > 'Z') return Keyword::None;
  for (size_t slot = SlotOf(word); !kTable[slot].word.empty(); slot = (slot + 1) % kSlots) {
    if (kTable[slot].word == word) return kTable[slot].keyword;
  }
  return Keyword::None;
}

}  // namespace sentrel::mib
