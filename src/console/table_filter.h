#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "controls/table.h"
#include "platform/oid_object.h"
#include "query/completion.h"
#include "query/query.h"
#include "query/trap_subject.h"

namespace sentrel {

/// Shows only the rows of traps for which a query holds: the others are shelved. Used on the event
/// loop only.
///
/// While it is on, every row has been judged by the query in force, or is among those that Continue
/// has yet to judge. While it is off, no row is shelved.
class TableFilter {
 public:
  /// Both must outlive the filter.
  TableFilter(Table& table, MibLibrary& mibs) : table_(table), names_(mibs) {}

  /// Puts another query in force; an empty one ends the filter and brings all rows back. A text
  /// that is no query changes nothing, and its error is returned.
  std::optional<query::QueryError> SetText(const std::string& text, query::Moment now);
  bool IsOn() const { return !query_.IsEmpty(); }
  /// The text in force.
  const std::string& Text() const { return text_; }
  const query::Query& InForce() const { return query_; }

  /// Judges rows that have not been judged by the query in force, from above to below, for about
  /// this long. Returns whether some are left.
  bool Continue(std::chrono::milliseconds budget);
  /// Whether the user has chosen other rows than the filter has left.
  bool HasUsersSelection() const { return IsOn() && !(Selected() == left_); }
  /// Names in the topmost rows, for completion.
  query::KnownNames NamesInUse();
  /// Whether a trap that arrives now is to be shelved.
  bool Hides(const ArrivedTrap& trap);

  /// The MIB database has changed: names may be others.
  void ForgetNames() { names_.Forget(); }

 private:
  struct Selection {
    Table::RowId row = 0;
    Table::RowId rowSel = 0;
    int col = 0;
    int colSel = 0;

    bool operator==(const Selection&) const = default;
  };

  void Begin(query::Query query, const std::string& text);
  void End();
  Selection Selected() const;
  void Select(const Selection& selection);
  void Judge(Table::RowId id);
  bool IsWanted(const RowSource* source);

  Table& table_;
  query::Names names_;
  query::Query query_;
  std::string text_;
  /// The lowest row comes first.
  std::vector<Table::RowId> unjudged_;
  Selection atBegin_;
  /// As the filter has left it: another one is the user's.
  Selection left_;
};

}  // namespace sentrel
