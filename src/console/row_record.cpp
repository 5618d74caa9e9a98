#include "console/row_record.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <vector>

#include "common/failure.h"

namespace sentrel {
namespace {

void AppendEscaped(std::string& record, std::string_view text) {
  const bool ordinary =
      std::none_of(text.begin(), text.end(), [](char c) { return c == ':' || c == '\\'; });
  if (ordinary) {
    record.append(text);
    return;
  }
  for (size_t i = 0; i < text.size(); ++i) {
    const bool colonAtRisk = text[i] == ':' && (i == 0 || i + 1 == text.size() ||
                                                text[i - 1] == ':' || text[i + 1] == ':');
    if (text[i] == '\\' || colonAtRisk) record.push_back('\\');
    record.push_back(text[i]);
  }
}

/// The pieces between the "::" that no backslash guards, with their escapes.
std::vector<std::string_view> SplitFields(std::string_view record) {
  std::vector<std::string_view> fields;
  size_t begin = 0;
  for (size_t i = 0; i < record.size(); ++i) {
    if (record[i] == '\\') {
      ++i;
    } else if (record.compare(i, 2, "::") == 0) {
      fields.push_back(record.substr(begin, i - begin));
      begin = i + 2;
      ++i;
    }
  }
  fields.push_back(record.substr(begin));
  return fields;
}

std::string Unescaped(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && ++i == text.size()) throw Failure("The row record ends in an escape.");
    plain.push_back(text[i]);
  }
  return plain;
}

/// Cuts the text up to the next "=" off its front, and that with it.
std::string_view TakePart(std::string_view& text) {
  const auto end = text.find('=');
  if (end == std::string_view::npos) throw Failure("A field of the row record lacks a part.");
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(end + 1);
  return part;
}

int WholeNumber(std::string_view digits) {
  int number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end) throw Failure("A type code is no whole number.");
  return number;
}

void ReadField(std::string_view field, Trap& trap) {
  const std::string_view name = TakePart(field);
  if (name == "SOURCEIP") {
    trap.SourceAddress = Unescaped(field);
  } else if (name == "COMMUNITY") {
    trap.Community = Unescaped(field);
  } else {
    trap.OIDs.emplace_back(name);
    trap.DataTypes.push_back(WholeNumber(TakePart(field)));
    trap.Values.push_back(Unescaped(field));
  }
}

/// As long as the record is where nothing needs an escape.
size_t UsualLength(const Trap& trap) {
  constexpr size_t kNames = sizeof "SOURCEIP=::COMMUNITY=";
  constexpr size_t kSeparators = sizeof "::=-12345=";
  size_t length = kNames + trap.SourceAddress.size() + trap.Community.size();
  for (size_t i = 0; i < BindingCount(trap); ++i) {
    length += kSeparators + trap.OIDs[i].size() + trap.Values[i].size();
  }
  return length;
}

}  // namespace

Trap ReadRowRecord(std::string_view record) {
  Trap trap;
  for (const std::string_view field : SplitFields(record)) ReadField(field, trap);
  return trap;
}

std::string RowRecord(const Trap& trap) {
  std::string record;
  record.reserve(UsualLength(trap));
  record.append("SOURCEIP=");
  AppendEscaped(record, trap.SourceAddress);
  record.append("::COMMUNITY=");
  AppendEscaped(record, trap.Community);
  for (size_t i = 0; i < BindingCount(trap); ++i) {
    record.append("::").append(trap.OIDs[i]);
    record.append("=").append(std::to_string(trap.DataTypes[i])).append("=");
    AppendEscaped(record, trap.Values[i]);
  }
  return record;
}

size_t BindingCount(const Trap& trap) {
  return std::min({trap.OIDs.size(), trap.DataTypes.size(), trap.Values.size()});
}

}  // namespace sentrel
