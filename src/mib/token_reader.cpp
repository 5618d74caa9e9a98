#include "mib/token_reader.h"

#include <algorithm>

namespace sentrel::mib {
namespace {

constexpr size_t kMessagesPerFile = 100;

/// Line ends in a text. Counts in blocks short enough for a byte, which the compiler turns into
/// vector code: every byte of every file passes through here.
std::uint32_t CountLines(std::string_view text) {
  constexpr size_t kBlock = 255;
  std::uint32_t lines = 0;
  for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
    std::uint8_t inBlock = 0;
    for (const char c : text.substr(0, kBlock)) inBlock += c == '\n' ? 1 : 0;
    lines += inBlock;
  }
  return lines;
}

}  // namespace

std::string Quote(std::string_view text) {
  constexpr size_t kLongest = 64;
  std::string quoted = "'";
  for (const char c : text.substr(0, kLongest)) quoted += c >= ' ' && c < 0x7F ? c : '?';
  if (text.size() > kLongest) quoted += "...";
  return quoted += '\'';
}

TokenReader::TokenReader(std::string_view text, Reading reading, Arena& arena)
    : text_(text), lexer_(text, reading), arena_(arena), next_(lexer_.Next()) {}

void TokenReader::Rewind(const Token& token) {
  lexer_.MoveTo(token.offset);
  next_ = lexer_.Next();
}

void TokenReader::SkipPast(char open, char close) {
  Token previous = next_;
  for (size_t depth = 1; depth > 0;) {
    if (AtEnd() || next_.kind == TokenKind::Assign || IsDefiningMacro(next_.keyword)) {
      Report(next_, std::string("no '") + close + "' for the '" + open + "' before this");
      if (!AtEnd() && previous.kind == TokenKind::Word) Rewind(previous);
      return;
    }
    previous = Take();
    if (previous.IsMark(open)) ++depth;
    if (previous.IsMark(close)) --depth;
  }
}

std::uint32_t TokenReader::LineOf(const Token& token) {
  const auto lines = [this](size_t from, size_t to) {
    return CountLines(text_.substr(from, to - from));
  };
  if (token.offset >= countedTo_) {
    line_ += lines(countedTo_, token.offset);
  } else {
    line_ -= lines(token.offset, countedTo_);
  }
  countedTo_ = token.offset;
  return line_;
}

void TokenReader::Report(const Token& at, std::string text) {
  ++errors_;
  if (messages_.size() < kMessagesPerFile) {
    messages_.push_back({{}, LineOf(at), std::move(text)});
  }
}

void TokenReader::ReportOpenStrings() {
  for (const Token& string : lexer_.OpenStrings()) {
    Report(string, "no quotation mark at the end of the text that begins here");
  }
}

}  // namespace sentrel::mib
