#include "query/parser.h"

#include <algorithm>
#include <utility>

#include "query/folded.h"

namespace sentrel::query {
namespace {

Cost Dearest(const std::vector<OwnedNode>& nodes) {
  Cost dearest = Cost::kEnvelope;
  for (const OwnedNode& node : nodes) dearest = std::max(dearest, node->PriceOf());
  return dearest;
}

/// All of some nodes, or any of them; the cheap ones first.
class Several : public Node {
 public:
  Several(std::vector<OwnedNode> nodes, bool isAll)
      : Node(Dearest(nodes)), nodes_(std::move(nodes)), isAll_(isAll) {
    std::ranges::stable_sort(nodes_, {}, [](const OwnedNode& node) { return node->PriceOf(); });
  }
  bool Holds(const Subject& subject) const override {
    const auto holds = [&](const OwnedNode& node) { return node->Holds(subject); };
    return isAll_ ? std::ranges::all_of(nodes_, holds) : std::ranges::any_of(nodes_, holds);
  }

 private:
  std::vector<OwnedNode> nodes_;
  bool isAll_;
};

class Not : public Node {
 public:
  explicit Not(OwnedNode node) : Node(node->PriceOf()), node_(std::move(node)) {}
  bool Holds(const Subject& subject) const override { return !node_->Holds(subject); }

 private:
  OwnedNode node_;
};

OwnedNode Joined(std::vector<OwnedNode> nodes, bool isAll) {
  if (nodes.size() == 1) return std::move(nodes.front());
  return std::make_unique<Several>(std::move(nodes), isAll);
}

/// Throws QueryError, which does not leave this file.
class Parser {
 public:
  Parser(std::vector<Token> tokens, const TermContext& context, int mostDepth)
      : tokens_(std::move(tokens)), context_(context), mostDepth_(mostDepth) {}

  Parsed ParseAll() {
    if (tokens_.empty()) return {};
    OwnedNode root = ParseOr();
    if (at_ < tokens_.size()) Fail(tokens_[at_], "Nothing is open that this bracket could close.");
    return {std::move(root), std::move(words_)};
  }

 private:
  [[noreturn]] static void Fail(const Token& token, std::string text) {
    throw QueryError{token.at, token.length, std::move(text)};
  }

  bool IsAt(TokenKind kind) const { return at_ < tokens_.size() && tokens_[at_].kind == kind; }
  bool IsAtEndOfAnd() const {
    return at_ == tokens_.size() || IsAt(TokenKind::kOr) || IsAt(TokenKind::kClose);
  }

  OwnedNode ParseOr() {
    std::vector<OwnedNode> choices;
    choices.push_back(ParseAnd());
    while (IsAt(TokenKind::kOr)) {
      ++at_;
      choices.push_back(ParseAnd());
    }
    return Joined(std::move(choices), false);
  }

  OwnedNode ParseAnd() {
    if (IsAtEndOfAnd()) {
      Fail(tokens_[std::min(at_, tokens_.size() - 1)], "Something to look for is missing here.");
    }
    std::vector<OwnedNode> parts;
    while (!IsAtEndOfAnd()) parts.push_back(ParseUnary());
    return Joined(std::move(parts), true);
  }

  OwnedNode ParseUnary() {
    const Token& token = tokens_[at_++];
    if (++depth_ > mostDepth_) Fail(token, "The brackets are too deep.");
    OwnedNode node;
    if (token.kind == TokenKind::kNot) {
      if (IsAtEndOfAnd()) Fail(token, "Something to leave out is missing behind the minus sign.");
      isNegated_ = !isNegated_;
      node = std::make_unique<Not>(ParseUnary());
      isNegated_ = !isNegated_;
    } else if (token.kind == TokenKind::kOpen) {
      node = ParseBracket(token);
    } else {
      node = ParseTerm(token);
    }
    --depth_;
    return node;
  }

  OwnedNode ParseBracket(const Token& open) {
    OwnedNode node = ParseOr();
    if (!IsAt(TokenKind::kClose)) Fail(open, "The bracket is not closed.");
    ++at_;
    return node;
  }

  OwnedNode ParseTerm(const Token& token) {
    auto term = TermOf(token, context_);
    if (auto* const error = std::get_if<QueryError>(&term)) throw std::move(*error);
    if (IsFreeWord(token) && !isNegated_ && !token.text.empty()) {
      words_.push_back(Folded(token.text));
    }
    return std::get<OwnedNode>(std::move(term));
  }

  const std::vector<Token> tokens_;
  const TermContext& context_;
  const int mostDepth_;
  std::size_t at_ = 0;
  int depth_ = 0;
  bool isNegated_ = false;
  std::vector<std::string> words_;
};

}  // namespace

std::variant<Parsed, QueryError> Parse(std::vector<Token> tokens, const TermContext& context,
                                       int mostDepth) {
  try {
    return Parser(std::move(tokens), context, mostDepth).ParseAll();
  } catch (QueryError& error) {
    return std::move(error);
  }
}

}  // namespace sentrel::query
