#pragma once

#include <string>
#include <string_view>

#include "controls/table.h"
#include "controls/tool_bars.h"
#include "platform/clipboard.h"

namespace sentrel {

/// The commands that work on the selected rows of the table. Used on the event loop only; all that
/// it is given must outlive it.
class TableCommands : public TableEvents {
 public:
  TableCommands(Table& table, Clipboard& clipboard, ToolBars& toolBars);

  /// Copies the selected cells, the titles among them where the header row is selected.
  /// Throws Failure where the clipboard cannot be reached.
  void CopyTraps();
  /// As CopyTraps, then as DeleteTraps; what could not be copied is not deleted.
  void CutTraps();
  /// Removes the selected rows but never the header row.
  void DeleteTraps();
  /// Selects the table from its header row to its last.
  void SelectAllTraps();

  /// The right button opens the Edit menu and leaves the selection as it is.
  void Table_MouseDown(int button, int shift, int x, int y) override;

 private:
  Table& table_;
  Clipboard& clipboard_;
  ToolBars& toolBars_;
};

/// Puts a line feed behind each carriage return that has none, but for one at the end of the text.
std::string FixLineEnds(std::string_view text);

}  // namespace sentrel
