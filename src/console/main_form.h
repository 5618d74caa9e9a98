#pragma once

#include "console/pause_and_raw.h"
#include "console/toolbar_layout.h"
#include "controls/table.h"
#include "platform/main_window.h"
#include "platform/message_box.h"
#include "platform/snmp.h"

namespace sentrel {

/// The help page that every window of the program opens with the help key.
inline constexpr int kHelpContext = 9100;

/// The main window's logic: load, layout of the table, shut-down. Used on the event loop only; all
/// that it is given must outlive it.
class MainForm : public MainWindowEvents {
 public:
  MainForm(MainWindow& window, Table& table, SNMP& snmp, MessageBox& messageBox,
           PauseAndRaw& pauseAndRaw, ToolbarLayout& layout);

  /// Loads the window and shows it. Throws Failure when traps cannot be received; the user has been
  /// told by then and the window is unloaded.
  void Show();

  /// Drops every trap and puts titles, sizes and alignments to their initial values.
  void SetupTable();

  void Form_Resize() override;
  void Form_Unload() override;

 private:
  void Form_Load();
  void TellThatReceptionFailed();

  MainWindow& window_;
  Table& table_;
  SNMP& snmp_;
  MessageBox& messageBox_;
  PauseAndRaw& pauseAndRaw_;
  ToolbarLayout& layout_;
};

}  // namespace sentrel
