#pragma once

#include <cstdint>
#include <string_view>

namespace sentrel::mib {

/// The words of the SMI that the parser acts on. Every other word is None.
enum class Keyword : std::uint8_t {
  None,
  Access,
  Augments,
  Begin,
  Bit,
  Bits,
  Choice,
  Counter,
  Counter32,
  Counter64,
  DisplayHint,
  End,
  Enterprise,
  Explicit,
  Exports,
  From,
  Gauge,
  Gauge32,
  Identifier,
  Implicit,
  Imports,
  Index,
  Integer,
  Integer32,
  IpAddress,
  LastUpdated,
  MaxAccess,
  NetworkAddress,
  Objects,
  Octet,
  Of,
  Opaque,
  Sequence,
  Size,
  String,
  Syntax,
  TextualConvention,
  TimeTicks,
  UInteger32,
  Units,
  Unsigned32,
  Variables,
  // From here on: what follows the name of a definition.
  Definitions,
  Macro,
  Object,
  // From here on: the macros that make a definition with an OID.
  AgentCapabilities,
  ModuleCompliance,
  ModuleIdentity,
  NotificationGroup,
  NotificationType,
  ObjectGroup,
  ObjectIdentity,
  ObjectType,
  TrapType,
};

Keyword KeywordOf(std::string_view word);

constexpr bool StandsBehindName(Keyword keyword) {
  return keyword >= Keyword::Definitions;
}
constexpr bool IsDefiningMacro(Keyword keyword) {
  return keyword >= Keyword::AgentCapabilities;
}

}  // namespace sentrel::mib
