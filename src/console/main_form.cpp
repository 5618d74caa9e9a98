#include "console/main_form.h"

#include <string>

#include "common/failure.h"
#include "common/numbers.h"

namespace sentrel {
namespace {

struct ColumnLayout {
  const char* title;
  int sampleLetters;  // the column is as wide as this many letters X
  Alignment alignment;
};

constexpr ColumnLayout kColumns[] = {
    {"Trap Time", 11, Alignment::Center},  {"IP Address", 12, Alignment::Center},
    {"Community", 14, Alignment::Center},  {"Device Type", 20, Alignment::Left},
    {"Trap Details", 36, Alignment::Left},
};

constexpr std::uint32_t kRuleColor = 0x6464FF;

}  // namespace

MainForm::MainForm(MainWindow& window, Table& table, SNMP& snmp, MessageBox& messageBox,
                   PauseAndRaw& pauseAndRaw, ToolbarLayout& layout)
    : window_(window),
      table_(table),
      snmp_(snmp),
      messageBox_(messageBox),
      pauseAndRaw_(pauseAndRaw),
      layout_(layout) {}

void MainForm::Show() {
  Form_Load();
  window_.Show();
}

void MainForm::Form_Load() {
  window_.SetCaption("SNMP Sentrel");
  window_.SetHelpContext(kHelpContext);
  layout_.LoadToolbarLayout();
  SetupTable();
  pauseAndRaw_.UpdateRawTool();
  pauseAndRaw_.UpdateEmptyTable();
  if (snmp_.StartListening() <= 0) return;
  TellThatReceptionFailed();
  window_.Unload();
  throw Failure("Trap reception is not enabled.");
}

void MainForm::TellThatReceptionFailed() {
  const ListenFailure failure = snmp_.WhyNotListening();
  messageBox_.Show(
      "Cannot enable trap reception. Did you install the Microsoft SNMP Trap service and is it "
      "running ?\r\n\r\n" +
          failure.reason + "\r\n\r\n" + failure.remedy,
      MessageIcon::CriticalStop);
}

void MainForm::SetupTable() {
  table_.SetRows(1);
  table_.SetCols(static_cast<int>(std::size(kColumns)));
  table_.SetFixedCols(0);
  table_.SetWholeRows(true);
  table_.SetRuleColor(kRuleColor);
  table_.SetRowHeight(0, RoundHalfEven(window_.TextHeight("X") * 1.5));
  for (int col = 0; col < table_.Cols(); ++col) {
    const ColumnLayout& layout = kColumns[col];
    table_.SetCell(0, col, layout.title);
    table_.SetColAlignment(col, layout.alignment);
    const std::string sample(static_cast<size_t>(layout.sampleLetters), 'X');
    table_.SetColWidth(col, window_.TextWidth(sample));
  }
}

void MainForm::Form_Resize() {
  Attempt([&] {
    window_.MoveTable(
        {0, 0, window_.InnerWidth(), window_.InnerHeight() - window_.StatusBarHeight()});
  });
}

void MainForm::Form_Unload() {
  Attempt([&] { snmp_.StopListening(); });
  Attempt([&] { snmp_.CloseListener(); });
  Attempt([&] { layout_.SaveToolbarLayout(); });
}

}  // namespace sentrel
