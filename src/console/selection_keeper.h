#pragma once

#include "controls/table.h"

namespace sentrel {

/// Keeps the selection of the table on the same traps while rows are inserted above them.
class SelectionKeeper {
 public:
  explicit SelectionKeeper(Table& table) : table_(table) {}

  /// With `restore` false remembers the selection, its rows moved down by `offset`; with `restore`
  /// true puts the remembered one back. A row that is gone by then leaves the table's own value in
  /// force.
  void KeepTableSelection(int offset, bool restore);

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
