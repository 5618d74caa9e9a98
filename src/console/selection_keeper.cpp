#include "console/selection_keeper.h"

#include "common/failure.h"

namespace sentrel {

void SelectionKeeper::KeepTableSelection(int offset, Restore restore) {
  if (restore == Restore::No) {
    saved_ = {table_.Row() + offset, table_.RowSel() + offset, table_.Col(), table_.ColSel()};
    return;
  }
  if (saved_.row < table_.Rows()) table_.SetRow(saved_.row);
  if (saved_.col < table_.Cols()) table_.SetCol(saved_.col);
  if (saved_.rowSel < table_.Rows()) table_.SetRowSel(saved_.rowSel);
  if (saved_.colSel < table_.Cols()) table_.SetColSel(saved_.colSel);
}

}  // namespace sentrel
