#pragma once

#include "controls/table.h"

namespace sentrel {

enum class Restore { No, Yes };

/// Keeps the selection of the table on the same traps while rows are inserted above them. Used on
/// the event loop only; the table must outlive it.
class SelectionKeeper {
 public:
  explicit SelectionKeeper(Table& table) : table_(table) {}

  /// Without `restore`, remembers the selection, its rows moved down by `offset`. With it, puts the
  /// remembered one back and ignores the offset; a row that is gone by then leaves the table's own
  /// value in force.
  void KeepTableSelection(int offset, Restore restore);

 private:
  struct Selection {
    int row = 0;
    int rowSel = 0;
    int col = 0;
    int colSel = 0;
  };

  Table& table_;
  Selection saved_;
};

}  // namespace sentrel
