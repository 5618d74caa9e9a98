#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace sentrel::mib {

/// What a definition defines. The numbers are part of the image format.
enum class Kind : std::uint8_t {
  Label = 0,         ///< a name given in passing, org(3) within the value of another definition
  Value = 1,         ///< OBJECT IDENTIFIER ::=
  Identity = 2,      ///< MODULE-IDENTITY, OBJECT-IDENTITY
  Object = 3,        ///< OBJECT-TYPE
  Notification = 4,  ///< NOTIFICATION-TYPE, TRAP-TYPE
  Group = 5,         ///< OBJECT-GROUP, NOTIFICATION-GROUP, MODULE-COMPLIANCE, AGENT-CAPABILITIES
  Type = 6,          ///< TEXTUAL-CONVENTION or type assignment: has no OID
};

/// What a value is made of once all textual conventions are resolved (RFC 2578 section 7.1). The
/// numbers are part of the image format.
enum class BaseType : std::uint8_t {
  None = 0,
  Integer = 1,
  OctetString = 2,
  ObjectIdentifier = 3,
  Bits = 4,
  IpAddress = 5,
  Counter32 = 6,
  Gauge32 = 7,
  TimeTicks = 8,
  Opaque = 9,
  Counter64 = 10,
  Table = 11,
  Row = 12,
};

/// One label of an enumeration: down(2).
struct NamedValue {
  std::int32_t value = 0;
  std::string_view label;
};

/// A reference by name out of a definition: to a definition of the same module, to one of the
/// module's imports, or to nothing.
class Reference {
 public:
  static Reference ToLocal(size_t definition) { return Reference(static_cast<int>(definition)); }
  static Reference ToImport(size_t import) { return Reference(~static_cast<int>(import)); }
  Reference() = default;

  bool IsNone() const { return index_ == kNone; }
  bool IsLocal() const { return index_ >= 0 && index_ != kNone; }
  size_t Local() const { return static_cast<size_t>(index_); }
  size_t Import() const { return static_cast<size_t>(~index_); }

 private:
  static constexpr int kNone = 0x7FFFFFFF;
  explicit Reference(int index) : index_(index) {}
  int index_ = kNone;
};

/// A run of elements in one of the module's lists.
struct Span {
  std::uint32_t begin = 0;
  std::uint32_t count = 0;
};

struct Definition {
  std::string_view name;
  std::string_view hint;
  /// What an object's values count, "seconds".
  std::string_view units;
  /// The node that the OID starts from; none for an absolute OID, and for types.
  Reference parent;
  /// The type that the syntax names; none where it is one of the base types.
  Reference type;
  /// The OID's numbers below the parent, in Module::numbers.
  Span numbers;
  /// The syntax's own enumeration, in Module::values.
  Span values;
  /// The objects that a notification carries, or the indexes of a row, in Module::related. A row
  /// that augments another one has that row for its only index (RFC 2578 section 7.8).
  Span related;
  std::uint32_t line = 0;
  Kind kind = Kind::Value;
  BaseType base = BaseType::None;
  /// Whether an object exists only in notifications (RFC 2578 section 7.3).
  bool isForNotify = false;
};

/// A definition while it is being read: what it refers to is known by name only.
struct DraftDefinition : Definition {
  std::string_view parentName;
  std::string_view typeName;
};

/// A name that a module takes from another one.
struct Import {
  std::string_view name;
  /// Empty where the module uses the name without importing it.
  std::string_view module;
  std::uint32_t line = 0;
  bool isType = false;
  /// Whether a definition of the module refers to it.
  bool isUsed = false;
};

struct ModuleHead {
  std::string_view name;
  std::uint32_t file = 0;
  std::uint32_t line = 0;
  /// LAST-UPDATED as the number YYYYMMDDHHMM, 0 where there is none.
  std::uint64_t lastUpdated = 0;
};

/// One module while it is being read. All texts lie in an Arena that outlives it.
struct ModuleDraft : ModuleHead {
  std::vector<Import> imports;
  std::vector<DraftDefinition> definitions;
  std::vector<std::uint32_t> numbers;
  std::vector<NamedValue> values;
  std::vector<std::string_view> related;
};

/// One module as its file gives it. Texts and named values lie in an Arena that outlives it, the
/// other lists are lent by it.
struct Module : ModuleHead {
  std::span<Import> imports;
  std::span<Definition> definitions;
  std::span<std::uint32_t> numbers;
  std::span<NamedValue> values;
  std::span<Reference> related;
  /// Positions in `definitions`, sorted by name; of equal names the first definition comes first.
  std::span<std::uint32_t> byName;
};

}  // namespace sentrel::mib
