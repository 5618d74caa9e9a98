#pragma once

#include <string>
#include <string_view>

#include "mib/arena.h"
#include "mib/lexer.h"
#include "mib/message.h"

namespace sentrel::mib {

/// The tokens of one file with one token of lookahead, the messages about it, and the arena that
/// keeps what is worth keeping of its text. One thread at a time; text and arena must outlive it.
class TokenReader {
 public:
  TokenReader(std::string_view text, Reading reading, Arena& arena);

  const Token& Peek() const { return next_; }
  Token Take() {
    const Token token = next_;
    next_ = lexer_.Next();
    return token;
  }
  /// Makes the token the next one again.
  void Rewind(const Token& token);
  void SetStrings(bool on) { lexer_.SetStrings(on); }
  bool AtEnd() const { return next_.kind == TokenKind::End; }

  /// Takes the next token if it is this mark.
  bool TakeMark(char mark) {
    const bool isNext = next_.IsMark(mark);
    if (isNext) next_ = lexer_.Next();
    return isNext;
  }
  /// Takes the next token if it is this keyword.
  bool TakeKeyword(Keyword keyword) {
    const bool isNext = next_.Is(keyword);
    if (isNext) next_ = lexer_.Next();
    return isNext;
  }
  /// After an opening mark: takes everything up to and including its partner. Stops, with a
  /// message, before the next definition, which tells that the partner is missing.
  void SkipPast(char open, char close);

  /// The number of the line that the token begins on, from 1.
  std::uint32_t LineOf(const Token& token);
  /// Beyond a bound, messages are counted and not kept.
  void Report(const Token& at, std::string text);
  /// Reports the strings without an end. Called at the end of the text.
  void ReportOpenStrings();
  Messages& AllMessages() { return messages_; }
  /// How many things were wrong, kept or not.
  size_t Errors() const { return errors_; }

  std::string_view Keep(std::string_view text) { return arena_.Keep(text); }

 private:
  std::string_view text_;
  Lexer lexer_;
  Arena& arena_;
  Token next_;
  size_t countedTo_ = 0;
  std::uint32_t line_ = 1;
  Messages messages_;
  size_t errors_ = 0;
};

/// A text from a file, made fit for a message: bounded, without control characters.
std::string Quote(std::string_view text);

}  // namespace sentrel::mib
