#include "mib/object_facts.h"

#include "mib/lookup.h"

namespace sentrel::mib {
namespace {

using Match = Database::Match;
using Numbers = std::span<const std::uint32_t>;

static_assert(static_cast<int>(ValueBase::kInteger) == static_cast<int>(BaseType::Integer));
static_assert(static_cast<int>(ValueBase::kRow) == static_cast<int>(BaseType::Row));

/// Rows augment rows that have indexes of their own: more than this is an error of the modules.
constexpr int kMostAugments = 4;

const format::TypeRecord& TypeOf(const Match& match) {
  return match.image->Type(match.image->EntryOf(match.node).type);
}

bool IsRow(const Match& match) {
  return match.depth > 0 && TypeOf(match).base == static_cast<std::uint32_t>(BaseType::Row);
}

NodeFacts FactsOfMatch(const Match& match) {
  if (match.depth == 0) return {};
  const Image& image = *match.image;
  const format::EntryRecord& entry = image.EntryOf(match.node);
  const format::TypeRecord& type = TypeOf(match);
  const bool isKnown = type.base <= static_cast<std::uint32_t>(ValueBase::kRow);
  return {.name = std::string(image.Text(entry.name)),
          .module = std::string(image.ModuleOf(entry)),
          .oid = image.OidOf(match.node),
          .base = isKnown ? static_cast<ValueBase>(type.base) : ValueBase::kUnknown,
          .hint = std::string(image.Text(type.hint)),
          .units = std::string(image.Text(type.units))};
}

/// The nodes that the row names; what they are another image may tell.
std::vector<Match> RelatedTo(const Database& database, const Match& row) {
  std::vector<Match> related;
  for (const std::uint32_t node : row.image->Related(row.image->EntryOf(row.node))) {
    const auto oid = row.image->OidOf(node);
    const Match match = database.Find(oid);
    if (match.depth == oid.size()) related.push_back(match);
  }
  return related;
}

std::vector<NodeFacts> IndexesOf(const Database& database, const Match& row) {
  std::vector<Match> indexes = RelatedTo(database, row);
  for (int i = 0; i < kMostAugments && indexes.size() == 1 && IsRow(indexes[0]); ++i) {
    indexes = RelatedTo(database, indexes[0]);
  }
  std::vector<NodeFacts> facts;
  facts.reserve(indexes.size());
  for (const Match& index : indexes) facts.push_back(FactsOfMatch(index));
  return facts;
}

}  // namespace

ObjectFacts FactsOf(const Database& database, Numbers oid) {
  const Match match = MatchOf(database, oid);
  ObjectFacts facts{FactsOfMatch(match), {}};
  if (match.depth < 2) return facts;
  const Match row = database.Find(oid.first(match.depth - 1));
  if (row.depth == match.depth - 1 && IsRow(row)) facts.indexes = IndexesOf(database, row);
  return facts;
}

}  // namespace sentrel::mib
