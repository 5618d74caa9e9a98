#include "console/selection_keeper.h"

#include "common/failure.h"

namespace sentrel {

void SelectionKeeper::KeepTableSelection(int offset, bool restore) {
  if (!restore) {
    saved_ = {table_.Row() + offset, table_.RowSel() + offset, table_.Col(), table_.ColSel()};
    return;
  }
  Attempt([&] { table_.SetRow(saved_.row); });
  Attempt([&] { table_.SetCol(saved_.col); });
  Attempt([&] { table_.SetRowSel(saved_.rowSel); });
  Attempt([&] { table_.SetColSel(saved_.colSel); });
}

}  // namespace sentrel
