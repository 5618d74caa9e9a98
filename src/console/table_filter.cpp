#include "console/table_filter.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "common/coarse_clock.h"
#include "console/trap_row.h"

namespace sentrel {
namespace {

/// Looked through for names at each key.
constexpr int kNamedRows = 100;

}  // namespace

std::optional<query::QueryError> TableFilter::SetText(const std::string& text, query::Moment now) {
  auto query = query::Query::Of(text, now);
  if (auto* const error = std::get_if<query::QueryError>(&query)) return std::move(*error);
  if (std::get<query::Query>(query).IsEmpty()) {
    if (IsOn()) End();
  } else {
    Begin(std::get<query::Query>(std::move(query)), text);
  }
  return std::nullopt;
}

void TableFilter::Begin(query::Query query, const std::string& text) {
  if (!IsOn()) atBegin_ = left_ = Selected();
  query_ = std::move(query);
  text_ = text;
  table_.SetChoiceText(std::string("Filter: ").append(text));
  std::vector<Table::RowId> shown;
  for (int row = table_.Rows() - 1; row > 0; --row) shown.push_back(table_.IdOf(row));
  auto shelved = table_.ShelvedIds();
  std::ranges::reverse(shelved);
  unjudged_.clear();
  std::ranges::merge(shown, shelved, std::back_inserter(unjudged_));
}

void TableFilter::End() {
  const Selection selection = HasUsersSelection() ? Selected() : atBegin_;
  query_ = {};
  text_.clear();
  unjudged_.clear();
  table_.SetChoiceText("");
  table_.SetRedraw(0);
  for (const Table::RowId id : table_.ShelvedIds()) table_.UnshelveRow(id);
  Select(selection);
  table_.SetRedraw(1);
}

bool TableFilter::Continue(std::chrono::milliseconds budget) {
  if (unjudged_.empty()) return false;
  const CoarseClock::time_point end = CoarseClock::now() + budget;
  const bool isUsers = HasUsersSelection();
  table_.SetRedraw(0);
  do {
    Judge(unjudged_.back());
    unjudged_.pop_back();
  } while (!unjudged_.empty() && CoarseClock::now() < end);
  if (!isUsers) left_ = Selected();
  table_.SetRedraw(1);
  return !unjudged_.empty();
}

query::KnownNames TableFilter::NamesInUse() {
  query::KnownNames known;
  const int end = std::min(table_.Rows(), kNamedRows + 1);
  for (int row = 1; row < end; ++row) {
    const auto trap = TrapOf(table_, row);
    if (!trap) continue;
    const query::TrapSubject subject(*trap, names_);
    known.notifications.emplace_back(subject.NotificationName());
    for (const query::NamedValue& binding : subject.Bindings()) {
      known.bindings.push_back(binding.name.substr(0, binding.name.find('.')));
    }
  }
  return known;
}

bool TableFilter::Hides(const ArrivedTrap& trap) {
  return IsOn() && !query_.Holds(query::TrapSubject(trap, names_));
}

void TableFilter::Judge(Table::RowId id) {
  if (const int row = table_.RowOf(id)) {
    if (!IsWanted(table_.Source(row).get())) table_.ShelveRow(row);
    return;
  }
  if (table_.IsShelved(id) && IsWanted(table_.ShelvedSource(id).get())) table_.UnshelveRow(id);
}

bool TableFilter::IsWanted(const RowSource* source) {
  const auto* const row = dynamic_cast<const TrapRow*>(source);
  return row == nullptr || query_.Holds(query::TrapSubject(row->Trap(), names_));
}

TableFilter::Selection TableFilter::Selected() const {
  return {table_.IdOf(table_.Row()), table_.IdOf(table_.RowSel()), table_.Col(), table_.ColSel()};
}

/// A row that has gone meanwhile leaves the selection as it is.
void TableFilter::Select(const Selection& selection) {
  const int row = table_.RowOf(selection.row);
  if (row == 0) return;
  const int rowSel = table_.RowOf(selection.rowSel);
  table_.SetRow(row);
  table_.SetCol(selection.col);
  table_.SetRowSel(rowSel == 0 ? row : rowSel);
  table_.SetColSel(selection.colSel);
}

}  // namespace sentrel
