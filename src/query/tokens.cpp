#include "query/tokens.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "query/folded.h"

namespace sentrel::query {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsBlank(char c) {
  return kBlanks.find(c) != std::string_view::npos;
}

class Reader {
 public:
  explicit Reader(std::string_view query) : query_(query) {}

  std::variant<std::vector<Token>, QueryError> ReadAll() {
    std::vector<Token> tokens;
    for (; at_ < query_.size() && !error_; SkipBlanks()) {
      if (IsBlank(query_[at_])) continue;
      tokens.push_back(Read());
    }
    if (error_) return *error_;
    return tokens;
  }

 private:
  void SkipBlanks() {
    while (at_ < query_.size() && IsBlank(query_[at_])) ++at_;
  }

  Token Sign(TokenKind kind) { return {.kind = kind, .at = at_++, .length = 1}; }

  Token Read() {
    const bool isBeforeSomething = at_ + 1 < query_.size() && !IsBlank(query_[at_ + 1]);
    switch (query_[at_]) {
      case '(':
        return Sign(TokenKind::kOpen);
      case ')':
        return Sign(TokenKind::kClose);
      case '-':
        if (isBeforeSomething) return Sign(TokenKind::kNot);
        break;
      default:
        break;
    }
    return ReadText();
  }

  Token ReadText() {
    Token token{.kind = TokenKind::kText, .at = at_};
    bool isQuoted = false;
    while (at_ < query_.size() && !error_) {
      const char c = query_[at_];
      if (IsBlank(c) || c == '(' || c == ')') break;
      if (c == '"') {
        if (!std::exchange(isQuoted, true)) token.plain = token.text.size();
        ReadQuoted(token.text);
      } else {
        token.text += c;
        ++at_;
      }
    }
    if (!isQuoted) token.plain = token.text.size();
    token.length = at_ - token.at;
    if (!isQuoted && Folded(token.text) == "or") token.kind = TokenKind::kOr;
    return token;
  }

  void ReadQuoted(std::string& text) {
    const std::size_t begin = at_++;
    for (; at_ < query_.size(); ++at_) {
      if (query_[at_] != '"') {
        text += query_[at_];
      } else if (at_ + 1 < query_.size() && query_[at_ + 1] == '"') {
        text += query_[at_++];
      } else {
        ++at_;
        return;
      }
    }
    error_ = {begin, query_.size() - begin, "The quote is not closed."};
  }

  std::string_view query_;
  std::size_t at_ = 0;
  std::optional<QueryError> error_;
};

}  // namespace

std::variant<std::vector<Token>, QueryError> Tokens(std::string_view query) {
  return Reader(query).ReadAll();
}

}  // namespace sentrel::query
