#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sentrel {

/// A word of a line that was pasted. One in quotation marks is never a keyword.
struct PastedWord {
  std::string text;
  bool isQuoted = false;

  /// In any case of the letters A to Z; `keyword` is in lower case.
  bool Is(std::string_view keyword) const;
};

/// What a backslash is.
enum class Backslash { kLetter, kEscape };

/// The words of a line: what is between blanks, or between quotation marks of either kind at the
/// start of a word. Nothing where a closing quotation mark is missing.
std::optional<std::vector<PastedWord>> WordsOf(std::string_view line, Backslash backslash);

/// Goes through words once.
class PastedWords {
 public:
  PastedWords(std::vector<PastedWord> words, std::size_t first)
      : words_(std::move(words)), next_(first) {}

  bool AtEnd() const { return next_ >= words_.size(); }
  /// Not at the end.
  const PastedWord& Peek() const { return words_[next_]; }
  /// An empty word at the end.
  PastedWord Take();
  /// Takes the next word if it is the keyword.
  bool TakeIf(std::string_view keyword);

 private:
  std::vector<PastedWord> words_;
  std::size_t next_;
};

}  // namespace sentrel
