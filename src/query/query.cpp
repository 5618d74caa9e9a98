#include "query/query.h"

#include "query/parser.h"

namespace sentrel::query {

std::variant<Query, QueryError> Query::Of(std::string_view text, Moment now,
                                          const DeviceNames* names) {
  if (text.size() > kMostBytes) {
    return QueryError{kMostBytes, text.size() - kMostBytes, "The filter is too long."};
  }
  auto tokens = Tokens(text);
  if (auto* const error = std::get_if<QueryError>(&tokens)) return std::move(*error);
  auto parsed = Parse(std::get<std::vector<Token>>(std::move(tokens)), {now, names}, kMostDepth);
  if (auto* const error = std::get_if<QueryError>(&parsed)) return std::move(*error);
  Query query;
  query.root_ = std::move(std::get<Parsed>(parsed).root);
  query.words_ = std::move(std::get<Parsed>(parsed).words);
  return query;
}

bool Query::Holds(const Subject& subject) const {
  return root_ == nullptr || root_->Holds(subject);
}

}  // namespace sentrel::query
