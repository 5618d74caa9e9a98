#include "mib/lexer.h"

#include <algorithm>

#include "mib/scan.h"

namespace sentrel::mib {
namespace {

bool IsNumber(std::string_view word) {
  if (word[0] == '-') word.remove_prefix(1);
  return !word.empty() && std::all_of(word.begin(), word.end(), scan::IsDigit);
}

}  // namespace

Token Lexer::Make(TokenKind kind, size_t begin, size_t end) {
  at_ = end;
  return {text_.substr(begin, end - begin), static_cast<std::uint32_t>(begin), kind, Keyword::None};
}

Token Lexer::Next() {
  SkipBlanks();
  if (at_ >= text_.size()) return Make(TokenKind::End, text_.size(), text_.size());
  const char c = text_[at_];
  if (scan::IsWordPart(c) || c == '-') return NextWord();
  if (c == '"' && strings_) return NextString();
  if (c == '\'' && strings_) return NextQuoted();
  if (text_.compare(at_, 3, "::=") == 0) return Make(TokenKind::Assign, at_, at_ + 3);
  return Make(TokenKind::Mark, at_, at_ + 1);
}

void Lexer::SkipBlanks() {
  for (;;) {
    at_ = scan::BlankEnd(text_, at_);
    if (at_ + 1 >= text_.size() || text_[at_] != '-' || text_[at_ + 1] != '-') return;
    SkipComment();
  }
}

void Lexer::SkipComment() {
  at_ += 2;
  const size_t lineEnd = std::min(text_.find('\n', at_), text_.size());
  if (reading_.commentEnd == CommentEnd::AtDashes) {
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
  const size_t mark = text_.find('"', begin);
  size_t end = mark;
  if (reading_.stringEnd == StringEnd::BeforeDefinition) {
    end = std::min(mark, DefinitionWithin(begin, std::min(mark, text_.size())));
  }
  // A string without an end is taken for a stray mark, so that what follows is not lost.
  Token token = end == std::string_view::npos ? Make(TokenKind::Mark, at_, begin)
                                              : Make(TokenKind::String, begin, end);
  token.offset = static_cast<std::uint32_t>(begin - 1);
  if (token.kind == TokenKind::String && end == mark) {
    at_ = end + 1;
  } else if (openStrings_.empty() || openStrings_.back().offset < token.offset) {
    openStrings_.push_back(token);
  }
  return token;
}

/// The begin of the first line, of those that begin within a part of the text, that begins a
/// definition.
size_t Lexer::DefinitionWithin(size_t begin, size_t end) const {
  const std::string_view part = text_.substr(0, end);
  for (size_t line = part.find('\n', begin); line != std::string_view::npos;
       line = part.find('\n', line + 1)) {
    if (BeginsDefinition(line + 1)) return line + 1;
  }
  return std::string_view::npos;
}

bool Lexer::BeginsDefinition(size_t lineBegin) const {
  const size_t lineEnd = std::min(text_.find('\n', lineBegin), text_.size());
  Lexer line(text_.substr(lineBegin, lineEnd - lineBegin), reading_);
  line.SetStrings(false);
  if (const Token name = line.Next();
      name.kind != TokenKind::Word || StandsBehindName(name.keyword))
    return false;
  const Token next = line.Next();
  if (next.Is(Keyword::Object)) return line.Next().Is(Keyword::Identifier);
  return next.kind == TokenKind::Assign || IsDefiningMacro(next.keyword);
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
  token.offset = static_cast<std::uint32_t>(begin - 1);
  at_ = end + 2;
  return token;
}

Token Lexer::NextWord() {
  const size_t begin = at_;
  Token word = Make(TokenKind::Word, begin, scan::WordEnd(text_, begin));
  const char first = word.text[0];
  if (first >= 'A' && first <= 'Z') {
    word.keyword = KeywordOf(word.text);
  } else if ((scan::IsDigit(first) || first == '-') && IsNumber(word.text)) {
    word.kind = TokenKind::Number;
  }
  return word;
}

}  // namespace sentrel::mib
