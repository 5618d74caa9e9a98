#include "datagrams.h"

namespace sentrel::bench {
namespace {

constexpr char kSequence = 0x30, kInteger = 0x02, kText = 0x04, kNull = 0x05, kOid = 0x06,
               kTicks = 0x43;
constexpr char kTrap = '\xa7';
const std::string kZero(1, '\0');
/// 1.3.6.1.2.1.2.2.1, the columns of the table of interfaces.
const std::string kInterface = "\x2b\x06\x01\x02\x01\x02\x02\x01";
constexpr char kDescription = 2;

std::string Tagged(char tag, const std::string& content) {
  std::string coded(1, tag);
  const std::size_t size = content.size();
  if (size >= 0x100) {
    coded += {'\x82', static_cast<char>(size >> 8)};
  } else if (size >= 0x80) {
    coded += '\x81';
  }
  return coded + static_cast<char>(size) + content;
}

std::string Binding(const std::string& id, char tag, const std::string& value) {
  return Tagged(kSequence, Tagged(kOid, id) + Tagged(tag, value));
}

/// One number of an OID, seven bits a byte (X.690, section 8.19.2).
std::string Number(std::uint32_t number) {
  std::string coded(1, static_cast<char>(number & 0x7F));
  while ((number >>= 7) != 0) coded.insert(coded.begin(), static_cast<char>(number | 0x80));
  return coded;
}

std::string Column(char column, std::uint32_t instance) {
  return kInterface + column + Number(instance);
}

std::string Notification(const std::string& bindings) {
  const std::string zero = Tagged(kInteger, kZero);
  const std::string pdu = Tagged(kInteger, "\x01") + zero + zero + Tagged(kSequence, bindings);
  return Tagged(kSequence, Tagged(kInteger, "\x01") + Tagged(kText, "public") + Tagged(kTrap, pdu));
}

std::string Descriptions(std::uint32_t first, std::uint32_t count) {
  std::string bindings;
  for (std::uint32_t i = first; i < first + count; ++i) {
    bindings += Binding(Column(kDescription, i), kText, "GigabitEthernet0/7");
  }
  return bindings;
}

}  // namespace

Datagrams LinkDown() {
  const std::string start =
      Binding("\x2b\x06\x01\x02\x01\x01\x03" + kZero, kTicks, "\x12\x34\x56") +
      Binding("\x2b\x06\x01\x06\x03\x01\x01\x04\x01" + kZero, kOid,
              "\x2b\x06\x01\x06\x03\x01\x01\x05\x03");
  return {Notification(start + Binding(Column(1, 7), kInteger, "\x07") +
                       Binding(Column(7, 7), kInteger, "\x01") +
                       Binding(Column(8, 7), kInteger, "\x02") + Descriptions(7, 1))};
}

Datagrams WithBindings(std::uint32_t bindings) {
  return {Notification(Descriptions(1, bindings))};
}

Datagrams WithEmptyBindings(std::uint32_t bindings) {
  std::string all;
  for (std::uint32_t i = 0; i < bindings; ++i) all += Binding("\x2b\x06\x01", kNull, "");
  return {Notification(all)};
}

Datagrams WithText(const std::string& text) {
  return {Notification(Binding(Column(kDescription, 7), kText, text))};
}

Datagrams WithDistinctOids(std::uint32_t distinct) {
  constexpr std::uint32_t kBindings = 10;
  Datagrams all;
  for (std::uint32_t first = 1; first <= distinct; first += kBindings) {
    all.push_back(Notification(Descriptions(first, kBindings)));
  }
  return all;
}

}  // namespace sentrel::bench
