#include "details/display_hint.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "common/utf8.h"

namespace sentrel {
namespace {

using Octets = std::span<const std::uint8_t>;

constexpr std::size_t kMostDigits = 5;
constexpr std::size_t kMostOfNumber = sizeof(std::uint64_t);

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Cuts a decimal number off the front; nothing where there is none, or a very long one.
std::optional<std::size_t> TakeNumber(std::string_view& text) {
  std::size_t number = 0;
  std::size_t digits = 0;
  for (; digits < text.size() && IsDigit(text[digits]); ++digits) {
    if (digits == kMostDigits) return std::nullopt;
    number = 10 * number + static_cast<std::size_t>(text[digits] - '0');
  }
  text.remove_prefix(digits);
  return digits > 0 ? std::optional(number) : std::nullopt;
}

std::string WithPoint(std::int64_t number, std::size_t places) {
  const bool isNegative = number < 0;
  const auto bits = static_cast<std::uint64_t>(number);
  std::string digits = std::to_string(isNegative ? ~bits + 1 : bits);
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
  if (places > 0) digits.insert(digits.size() - places, 1, '.');
  if (isNegative) digits.insert(0, 1, '-');
  return digits;
}

/// One part of a hint for octets (RFC 2579, section 3.1).
struct Format {
  bool isRepeated = false;
  std::size_t length = 0;
  char letter = 0;
  /// Zero where there is none.
  char separator = 0;
  char terminator = 0;
};

bool IsMark(std::string_view hint) {
  return !hint.empty() && !IsDigit(hint[0]) && hint[0] != '*';
}

char TakeMark(std::string_view& hint) {
  if (!IsMark(hint)) return 0;
  const char mark = hint[0];
  hint.remove_prefix(1);
  return mark;
}

std::optional<Format> TakeFormat(std::string_view& hint) {
  Format format;
  format.isRepeated = hint[0] == '*';
  if (format.isRepeated) hint.remove_prefix(1);
  const auto length = TakeNumber(hint);
  if (!length || hint.empty() || std::string_view("xdoat").find(hint[0]) == hint.npos) {
    return std::nullopt;
  }
  if (format.isRepeated && *length == 0) return std::nullopt;
  format.length = *length;
  format.letter = hint[0];
  hint.remove_prefix(1);
  format.separator = TakeMark(hint);
  if (format.isRepeated && format.separator != 0) format.terminator = TakeMark(hint);
  return format;
}

/// Without what does not form a whole character at the end.
std::string_view WholeCharacters(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size()) {
    const auto [code, length] = FirstCharacter(text.substr(end));
    if (length == 0) return text.size() - end < 4 ? text.substr(0, end) : text;
    end += length;
  }
  return text;
}

/// The octets of a value while they are written in the formats of a hint.
class Writer {
 public:
  explicit Writer(Octets octets) : rest_(octets) {}

  bool IsAtEnd() const { return rest_.empty(); }

  /// False where the octets are too many for the format.
  bool Write(const Format& format) {
    std::size_t count = 1;
    if (format.isRepeated) count = TakeCount();
    const std::size_t times = count;
    for (; count > 0; --count) {
      if (format.isRepeated && IsAtEnd()) break;
      if (!WriteOnce(format)) return false;
      const bool isLast = count == 1 && format.terminator != 0;
      if (!IsAtEnd() && !isLast) WriteMark(format.separator);
    }
    if (times > 0 && !IsAtEnd()) WriteMark(format.terminator);
    return true;
  }

  std::string text;

 private:
  std::size_t TakeCount() {
    if (IsAtEnd()) return 0;
    const std::size_t count = rest_[0];
    rest_ = rest_.subspan(1);
    return count;
  }

  void WriteMark(char mark) {
    if (mark != 0) text += mark;
  }

  bool WriteOnce(const Format& format) {
    const Octets octets = rest_.first(std::min(format.length, rest_.size()));
    rest_ = rest_.subspan(octets.size());
    if (octets.empty()) return true;
    const std::string_view raw(reinterpret_cast<const char*>(octets.data()), octets.size());
    if (format.letter == 'a') {
      text += raw;
    } else if (format.letter == 't') {
      text += WholeCharacters(raw);
    } else if (format.letter == 'x') {
      fmt::format_to(std::back_inserter(text), "{:02x}", fmt::join(octets, ""));
    } else {
      return WriteNumber(format.letter, octets);
    }
    return true;
  }

  bool WriteNumber(char letter, Octets octets) {
    if (octets.size() > kMostOfNumber) return false;
    std::uint64_t number = 0;
    for (const std::uint8_t octet : octets) number = number << 8 | octet;
    text += letter == 'o' ? fmt::format("{:o}", number) : std::to_string(number);
    return true;
  }

  Octets rest_;
};

std::optional<std::vector<Format>> FormatsOf(std::string_view hint) {
  std::vector<Format> formats;
  while (!hint.empty()) {
    const auto format = TakeFormat(hint);
    if (!format) return std::nullopt;
    formats.push_back(*format);
  }
  return formats.empty() ? std::nullopt : std::optional(formats);
}

}  // namespace

std::optional<std::string> IntegerByHint(std::string_view hint, std::int64_t number) {
  if (hint == "x") return fmt::format("{:x}", number);
  if (hint == "o") return fmt::format("{:o}", number);
  if (hint == "b") return fmt::format("{:b}", number);
  if (hint == "d") return std::to_string(number);
  if (!hint.starts_with("d-")) return std::nullopt;
  hint.remove_prefix(2);
  const auto places = TakeNumber(hint);
  constexpr std::size_t kMostPlaces = 64;
  if (!places || !hint.empty() || *places > kMostPlaces) return std::nullopt;
  return WithPoint(number, *places);
}

std::optional<std::string> OctetsByHint(std::string_view hint, Octets octets) {
  const auto formats = FormatsOf(hint);
  if (!formats) return std::nullopt;
  Writer writer(octets);
  for (const Format& format : *formats) {
    if (writer.IsAtEnd()) break;
    if (!writer.Write(format)) return std::nullopt;
  }
  // The last format goes on to the end, unless it takes nothing.
  const Format& last = formats->back();
  const bool takes = last.length > 0 || last.isRepeated;
  while (takes && !writer.IsAtEnd()) {
    if (!writer.Write(last)) return std::nullopt;
  }
  if (!writer.IsAtEnd()) return std::nullopt;
  return std::move(writer.text);
}

}  // namespace sentrel
