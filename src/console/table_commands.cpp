#include "console/table_commands.h"

#include <algorithm>

#include "common/failure.h"
#include "console/copied_html.h"

namespace sentrel {

TableCommands::TableCommands(Table& table, Clipboard& clipboard, ToolBars& toolBars)
    : table_(table), clipboard_(clipboard), toolBars_(toolBars) {}

void TableCommands::CopyTraps() {
  clipboard_.Clear();
  clipboard_.SetText(FixLineEnds(table_.Clip()), CopiedHtml(table_));
}

void TableCommands::CutTraps() {
  CopyTraps();
  DeleteTraps();
}

void TableCommands::DeleteTraps() {
  const TableSelection selection = table_.GetSelection();
  const int first = std::max(selection.firstRow, 1);
  for (int row = first; row <= selection.lastRow; ++row) table_.RemoveItem(first);
}

void TableCommands::SelectAllTraps() {
  table_.SetRow(0);
  table_.SetCol(0);
  table_.SetRowSel(table_.Rows() - 1);
  table_.SetColSel(table_.Cols() - 1);
}

void TableCommands::Table_MouseDown(int button, int, int, int) {
  if (button != kRightButton) return;
  Attempt([&] { toolBars_.PopupMenu(toolBars_.Tools("Menu:EditMenu")); });
}

std::string FixLineEnds(std::string_view text) {
  std::string fixed;
  bool afterCarriageReturn = false;
  for (const char c : text) {
    if (afterCarriageReturn && c != '\n') fixed += '\n';
    afterCarriageReturn = c == '\r';
    fixed += c;
  }
  return fixed;
}

}  // namespace sentrel
