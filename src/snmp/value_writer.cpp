#include "snmp/value_writer.h"

#include <fmt/format.h>

#include <charconv>
#include <limits>
#include <optional>

#include "common/dotted_quad.h"
#include "common/failure.h"
#include "common/text.h"
#include "snmp/octet_text.h"

namespace sentrel {
namespace {

constexpr std::uint64_t kHighestSubidentifier = 0xFFFFFFFF;

/// What a type wants of its value.
constexpr char kInteger[] = "a whole number from -2147483648 to 2147483647";
constexpr char kUnsigned[] = "a whole number from 0 to 4294967295";
constexpr char kCounter64[] = "a whole number from 0 to 18446744073709551615";
constexpr char kObjectId[] = "an object identifier, such as 1.3.6.1.4.1";
constexpr char kAddress[] = "an IPv4 address, such as 192.0.2.1";

template <typename Number>
std::optional<Number> ParseNumber(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

/// A number whose shortest text is the given one.
template <typename Number>
std::optional<Number> ExactNumber(const std::string& text) {
  const auto number = ParseNumber<Number>(text);
  char buffer[400];
  if (!number) return std::nullopt;
  const auto end = std::to_chars(std::begin(buffer), std::end(buffer), *number).ptr;
  return std::string_view(buffer, end) == text ? number : std::nullopt;
}

bool TryParseOid(std::string_view text, std::vector<oid>& numbers) {
  if (text.starts_with('.')) text.remove_prefix(1);
  for (const std::string_view part : Split(text, ".")) {
    const auto number = ParseNumber<std::uint64_t>(part);
    if (!number || *number > kHighestSubidentifier) return false;
    numbers.push_back(*number);
  }
  if (numbers.size() < 2 || numbers.size() > MAX_OID_LEN || numbers[0] > 2) return false;
  // The first two share one number on the wire.
  return numbers[0] < 2 ? numbers[1] < 40 : numbers[1] <= kHighestSubidentifier - 80;
}

std::string Octets(const std::string& text) {
  if (!text.starts_with("0x")) return text;
  const auto octets = FromHex(std::string_view(text).substr(2));
  if (!octets) return text;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(octets->data());
  return OctetText({bytes, octets->size()}) == text ? *octets : text;
}

counter64 Halves(std::uint64_t number) {
  return {.high = number >> 32, .low = number & 0xFFFFFFFF};
}

/// One binding on its way into a list.
class Binding {
 public:
  Binding(netsnmp_variable_list*& list, const std::string& id, const std::string& value)
      : list_(list), id_(id), name_(ParseOid(id)), value_(value) {}

  void AppendAs(int typeCode) {
    switch (typeCode) {
      case ASN_INTEGER:
        return AppendNumber<std::int32_t, long>(ASN_INTEGER, kInteger);
      case ASN_COUNTER:
      case ASN_GAUGE:
      case ASN_TIMETICKS:
      case ASN_UINTEGER:
        return AppendNumber<std::uint32_t, u_long>(static_cast<u_char>(typeCode), kUnsigned);
      case ASN_COUNTER64:
        return Append(ASN_COUNTER64,
                      Halves(Fitting(ParseNumber<std::uint64_t>(value_), kCounter64)));
      case ASN_OCTET_STR:
      case ASN_BIT_STR:
      case ASN_NSAP:
        return AppendBytes(static_cast<u_char>(typeCode), Octets(value_));
      case ASN_OPAQUE:
        return AppendOpaque();
      case ASN_NULL:
        if (!value_.empty()) Refuse("empty");
        return AppendBytes(ASN_NULL, "");
      case ASN_OBJECT_ID:
        return AppendObjectId();
      case ASN_IPADDRESS:
        return Append(ASN_IPADDRESS, Fitting(DottedQuad(value_), kAddress));
      default:
        throw Failure(
            fmt::format("The type code {} of {} is none that a trap can carry.", typeCode, id_));
    }
  }

 private:
  [[noreturn]] void Refuse(std::string_view wanted) const {
    constexpr std::size_t kQuotable = 60;
    throw Failure(
        value_.size() > kQuotable
            ? fmt::format("The value of {} must be {}.", id_, wanted)
            : fmt::format("The value of {} must be {}, not \"{}\".", id_, wanted, value_));
  }

  template <typename Value>
  Value Fitting(const std::optional<Value>& value, std::string_view wanted) const {
    if (!value) Refuse(wanted);
    return *value;
  }

  void Put(u_char type, const void* value, std::size_t size) {
    if (!snmp_varlist_add_variable(&list_, name_.data(), name_.size(), type, value, size)) {
      throw std::bad_alloc();
    }
  }

  template <typename Value>
  void Append(u_char type, const Value& value) {
    Put(type, &value, sizeof value);
  }

  template <typename Range, typename Wire>
  void AppendNumber(u_char type, std::string_view wanted) {
    Append(type, static_cast<Wire>(Fitting(ParseNumber<Range>(value_), wanted)));
  }

  void AppendBytes(u_char type, std::string_view bytes) { Put(type, bytes.data(), bytes.size()); }

  void AppendObjectId() {
    std::vector<oid> numbers;
    if (!TryParseOid(value_, numbers)) Refuse(kObjectId);
    Put(ASN_OBJECT_ID, numbers.data(), numbers.size() * sizeof(oid));
  }

  void AppendOpaque() {
    if (const auto number = ExactNumber<float>(value_)) return Append(ASN_OPAQUE_FLOAT, *number);
    if (const auto number = ExactNumber<double>(value_)) return Append(ASN_OPAQUE_DOUBLE, *number);
    if (const auto number = ExactNumber<std::uint64_t>(value_)) {
      return Append(ASN_OPAQUE_U64, Halves(*number));
    }
    if (const auto number = ExactNumber<std::int64_t>(value_)) {
      return Append(ASN_OPAQUE_I64, Halves(static_cast<std::uint64_t>(*number)));
    }
    AppendBytes(ASN_OPAQUE, Octets(value_));
  }

  netsnmp_variable_list*& list_;
  const std::string& id_;
  const std::vector<oid> name_;
  const std::string& value_;
};

}  // namespace

std::vector<oid> ParseOid(std::string_view text) {
  std::vector<oid> numbers;
  if (!TryParseOid(text, numbers)) {
    throw Failure(fmt::format("\"{}\" is no {}.", text, kObjectId + 3));
  }
  return numbers;
}

void AppendBinding(netsnmp_variable_list*& list, const std::string& id, int typeCode,
                   const std::string& value) {
  Binding(list, id, value).AppendAs(typeCode);
}

}  // namespace sentrel
