#include "network/lost_datagrams.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string>
#include <vector>

#include "network/lines_of_words.h"

namespace sentrel {
namespace {

constexpr std::string_view kBlanks = " \t";

/// By name, with the protocol in front: "Udp:NoPorts".
using Numbers = std::map<std::string, std::uint64_t, std::less<>>;

void Note(const std::string& name, std::string_view number, Numbers& numbers) {
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error == std::errc() && end == number.data() + number.size()) numbers[name] = value;
}

void ReadPairsOfLines(std::string_view text, Numbers& numbers) {
  std::vector<std::string_view> names;
  for (const auto& words : LinesOfWords(text, kBlanks)) {
    const bool isSecond = !names.empty() && names[0] == words[0];
    for (std::size_t i = 1; isSecond && i < std::min(names.size(), words.size()); ++i) {
      Note(std::string(words[0]).append(names[i]), words[i], numbers);
    }
    names = isSecond ? std::vector<std::string_view>{} : words;
  }
}

void ReadNamesAndNumbers(std::string_view text, Numbers& numbers) {
  for (const auto& words : LinesOfWords(text, kBlanks)) {
    if (words.size() == 2) Note(std::string(words[0]), words[1], numbers);
  }
}

/// Of those that are there.
std::optional<std::uint64_t> Sum(const Numbers& numbers,
                                 std::initializer_list<std::string_view> names) {
  std::optional<std::uint64_t> sum;
  for (const std::string_view name : names) {
    const auto found = numbers.find(name);
    if (found != numbers.end()) sum = sum.value_or(0) + found->second;
  }
  return sum;
}

}  // namespace

LostDatagrams ReadLostDatagrams(std::string_view snmp, std::string_view netstat,
                                std::string_view snmp6) {
  Numbers numbers;
  ReadPairsOfLines(snmp, numbers);
  ReadPairsOfLines(netstat, numbers);
  ReadNamesAndNumbers(snmp6, numbers);
  return {.noPort = Sum(numbers, {"Udp:NoPorts", "Udp6NoPorts"}),
          .wrongChecksum = Sum(numbers, {"Udp:InCsumErrors", "Udp6InCsumErrors"}),
          .fullBuffer = Sum(numbers, {"Udp:RcvbufErrors", "Udp6RcvbufErrors"}),
          .notReassembled = Sum(numbers, {"Ip:ReasmFails", "Ip6ReasmFails"}),
          .wrongWay = Sum(numbers, {"TcpExt:IPReversePathFilter"})};
}

}  // namespace sentrel
