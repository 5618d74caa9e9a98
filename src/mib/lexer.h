#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "mib/keyword.h"

namespace sentrel::mib {

enum class TokenKind : std::uint8_t {
  End,
  Word,    ///< identifier or keyword; may hold what no identifier should, such as underscores
  Number,  ///< decimal digits, with a sign before them or not
  Quoted,  ///< 'FF'H or '01'B, text is without the quotes and the letter
  String,  ///< text is without the quotes
  Assign,  ///< ::=
  Mark,    ///< any other character; text is that character
};

struct Token {
  std::string_view text;
  /// Where the token begins in the source text.
  std::uint32_t offset = 0;
  TokenKind kind = TokenKind::End;
  Keyword keyword = Keyword::None;

  bool Is(Keyword wanted) const { return keyword == wanted; }
  bool IsMark(char mark) const { return kind == TokenKind::Mark && text[0] == mark; }
};

/// How a comment ends that holds a second "--" on its line. ASN.1 ends it there (X.680 section
/// 12.6.3); makers often mean the end of the line.
enum class CommentEnd { AtDashes, AtLineEnd };

/// Where a string ends: at the next quotation mark, or before it where a line begins that looks
/// like that of a definition, since then the mark has been forgotten.
enum class StringEnd { AtMark, BeforeDefinition };

/// How a text is to be understood.
struct Reading {
  CommentEnd commentEnd = CommentEnd::AtDashes;
  StringEnd stringEnd = StringEnd::AtMark;
};

/// Splits the text of a module file into tokens. Any bytes are accepted: those that mean nothing
/// outside strings and comments count as blanks. The text must outlive the tokens and be shorter
/// than 4 gigabytes.
class Lexer {
 public:
  Lexer(std::string_view text, Reading reading) : text_(text), reading_(reading) {}

  Token Next();
  /// Goes back, or on, to the offset of a token.
  void MoveTo(size_t offset) { at_ = offset; }
  /// Outside modules a quotation mark is a character like any other.
  void SetStrings(bool on) { strings_ = on; }
  /// The strings so far without a mark at their end, in their order.
  const std::vector<Token>& OpenStrings() const { return openStrings_; }

 private:
  void SkipBlanks();
  void SkipComment();
  Token Make(TokenKind kind, size_t begin, size_t end);
  Token NextString();
  Token NextQuoted();
  Token NextWord();
  size_t DefinitionWithin(size_t begin, size_t end) const;
  bool BeginsDefinition(size_t lineBegin) const;

  std::string_view text_;
  size_t at_ = 0;
  Reading reading_;
  bool strings_ = true;
  std::vector<Token> openStrings_;
};

}  // namespace sentrel::mib
