#pragma once

#include "console/oid_lookup.h"
#include "console/selection_keeper.h"
#include "console/trap_log.h"
#include "controls/table.h"
#include "platform/clock.h"
#include "platform/main_window.h"
#include "settings/settings.h"
#include "trap/arrived_trap.h"

namespace sentrel {

class TableFilter;

/// The table holds this many traps at most, those that a filter hides included; the oldest goes
/// first.
inline constexpr int kMostTraps = 999;

/// Turns an accepted trap into the newest row of the table, which never holds more than kMostTraps.
/// Used on the event loop only.
class TrapRows {
 public:
  /// All of these must outlive the builder, and the builder must outlive the use of the table.
  TrapRows(const Settings& settings, Table& table, const MainWindow& window, const Clock& clock,
           const Locale& locale, OidLookup& lookup, TrapLog& log);

  /// While the filter is on, it decides which traps become shelved rows. It must outlive this;
  /// null for none.
  void SetFilter(TableFilter* filter) { filter_ = filter; }

  /// Inserts the trap as row 1, logs it where Settings.LoggingEnabled is set, drops what is beyond
  /// kMostTraps and keeps the selection on the same traps. Painting is off meanwhile and on again
  /// afterwards, also after a failure.
  /// Row and log show every character (VisibleText); the row's data keeps what came.
  /// What the row shows is worked out when it is first looked at, raw or decoded as Settings.Raw
  /// is now. The row keeps the trap as it came (TrapOf).
  void AddTrap(const ArrivedTrap& trap);

 private:
  class Row;
  void Log(const ArrivedTrap& trap, bool raw);
  RowContent Content(const ArrivedTrap& arrived, const LocalTime& arrival, bool raw) const;
  int HeightFor(const std::string& summaryText) const;

  const Settings& settings_;
  Table& table_;
  const MainWindow& window_;
  const Clock& clock_;
  const Locale& locale_;
  OidLookup& lookup_;
  TrapLog& log_;
  SelectionKeeper selection_;
  TableFilter* filter_ = nullptr;
  /// The trap that was logged last, for its memory.
  Trap logged_;
};

}  // namespace sentrel
