#include "settings/pasted_line.h"

#include "common/text.h"

namespace sentrel {
namespace {

bool IsBlank(char c) {
  return static_cast<unsigned char>(c) <= ' ';
}

/// Reads one word from the front of the line, which does not begin with a blank.
std::optional<PastedWord> TakeWord(std::string_view& line, Backslash backslash) {
  PastedWord word;
  const char quote = line.front();
  word.isQuoted = quote == '"' || quote == '\'';
  std::size_t i = word.isQuoted ? 1 : 0;
  const auto isEnd = [&](char c) { return word.isQuoted ? c == quote : IsBlank(c); };
  for (; i < line.size() && !isEnd(line[i]); ++i) {
    const bool escapes = backslash == Backslash::kEscape && line[i] == '\\' && i + 1 < line.size();
    word.text += line[escapes ? ++i : i];
  }
  if (word.isQuoted && i == line.size()) return std::nullopt;
  line.remove_prefix(word.isQuoted ? i + 1 : i);
  return word;
}

}  // namespace

bool PastedWord::Is(std::string_view keyword) const {
  return !isQuoted && UpperCase(text) == UpperCase(keyword);
}

std::optional<std::vector<PastedWord>> WordsOf(std::string_view line, Backslash backslash) {
  std::vector<PastedWord> words;
  while (true) {
    while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
    if (line.empty()) return words;
    auto word = TakeWord(line, backslash);
    if (!word) return std::nullopt;
    words.push_back(std::move(*word));
  }
}

PastedWord PastedWords::Take() {
  return AtEnd() ? PastedWord{} : words_[next_++];
}

bool PastedWords::TakeIf(std::string_view keyword) {
  if (AtEnd() || !Peek().Is(keyword)) return false;
  ++next_;
  return true;
}

}  // namespace sentrel
