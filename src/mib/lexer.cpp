#include "mib/lexer.h"

#include <algorithm>
#include <array>

namespace sentrel::mib {
namespace {

/// What a character may be part of.
enum Class : std::uint8_t { Blank, WordPart, Dash, Other };

constexpr std::array<Class, 256> MakeClasses() {
  std::array<Class, 256> classes{};
  for (size_t c = 0; c < classes.size(); ++c) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    const bool digit = c >= '0' && c <= '9';
    if (letter || digit || c == '_') {
      classes[c] = WordPart;
    } else if (c == '-') {
      classes[c] = Dash;
    } else if (c > ' ' && c < 0x7F) {
      classes[c] = Other;
    }
  }
  return classes;
}

constexpr std::array<Class, 256> kClasses = MakeClasses();

Class ClassOf(char c) {
  return kClasses[static_cast<unsigned char>(c)];
}

bool IsNumber(std::string_view word) {
  if (word[0] == '-') word.remove_prefix(1);
  return !word.empty() &&
         std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

Token Lexer::Make(TokenKind kind, size_t begin, size_t end) {
  at_ = end;
  return {kind, text_.substr(begin, end - begin), begin};
}

Token Lexer::Next() {
  SkipBlanks();
  if (at_ >= text_.size()) return {TokenKind::End, {}, text_.size()};
  const char c = text_[at_];
  if (ClassOf(c) == WordPart || c == '-') return NextWord();
  if (c == '"' && strings_) return NextString();
  if (c == '\'' && strings_) return NextQuoted();
  if (text_.compare(at_, 3, "::=") == 0) return Make(TokenKind::Assign, at_, at_ + 3);
  return Make(TokenKind::Mark, at_, at_ + 1);
}

void Lexer::SkipBlanks() {
  const size_t size = text_.size();
  for (;;) {
    size_t at = at_;
    while (at < size && ClassOf(text_[at]) == Blank) ++at;
    at_ = at;
    if (at + 1 >= size || text_[at] != '-' || text_[at + 1] != '-') return;
    SkipComment();
  }
}

void Lexer::SkipComment() {
  at_ += 2;
  const size_t lineEnd = std::min(text_.find('\n', at_), text_.size());
  if (commentEnd_ == CommentEnd::AtDashes) {
    const size_t dashes = text_.substr(0, lineEnd).find("--", at_);
    if (dashes != std::string_view::npos) {
      at_ = dashes + 2;
      // What is left of a ruler of dashes is no token.
      if (at_ < lineEnd && text_[at_] == '-' && (at_ + 1 == lineEnd || text_[at_ + 1] != '-'))
        ++at_;
      return;
    }
  }
  at_ = lineEnd;
}

Token Lexer::NextString() {
  const size_t begin = at_ + 1;
  const size_t end = text_.find('"', begin);
  // A string without an end is taken for a stray mark, so that what follows is not lost.
  if (end == std::string_view::npos) return Make(TokenKind::Mark, at_, at_ + 1);
  Token token = Make(TokenKind::String, begin, end);
  token.offset = begin - 1;
  at_ = end + 1;
  return token;
}

Token Lexer::NextQuoted() {
  constexpr size_t kLongest = 4096;
  const size_t begin = at_ + 1;
  const size_t end = text_.substr(0, begin + kLongest).find('\'', begin);
  if (end == std::string_view::npos || end + 1 >= text_.size() ||
      std::string_view("HhBb").find(text_[end + 1]) == std::string_view::npos) {
    return Make(TokenKind::Mark, at_, at_ + 1);
  }
  Token token = Make(TokenKind::Quoted, begin, end);
  token.offset = begin - 1;
  at_ = end + 2;
  return token;
}

Token Lexer::NextWord() {
  const size_t begin = at_;
  size_t end = at_;
  const size_t size = text_.size();
  for (; end < size; ++end) {
    const Class part = ClassOf(text_[end]);
    if (part == WordPart) continue;
    if (part != Dash || (end + 1 < size && text_[end + 1] == '-')) break;
  }
  const std::string_view word = text_.substr(begin, end - begin);
  const char first = word[0];
  const bool maybeNumber = (first >= '0' && first <= '9') || first == '-';
  return Make(maybeNumber && IsNumber(word) ? TokenKind::Number : TokenKind::Word, begin, end);
}

}  // namespace sentrel::mib
