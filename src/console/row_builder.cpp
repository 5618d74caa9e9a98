#include "console/row_builder.h"

#include <algorithm>

#include "common/dates.h"
#include "common/numbers.h"
#include "common/text.h"
#include "console/row_record.h"
#include "console/trap_texts.h"

namespace sentrel {
namespace {

constexpr int kNewest = 1;

/// Painting is off as long as this lives.
class PaintingPause {
 public:
  explicit PaintingPause(Table& table) : table_(table) { table_.SetRedraw(0); }
  ~PaintingPause() { table_.SetRedraw(1); }
  PaintingPause(const PaintingPause&) = delete;
  PaintingPause& operator=(const PaintingPause&) = delete;

 private:
  Table& table_;
};

}  // namespace

RowBuilder::RowBuilder(const Settings& settings, Table& table, const MainWindow& window,
                       const Clock& clock, const Locale& locale, OidLookup& lookup, TrapLog& log)
    : settings_(settings),
      table_(table),
      window_(window),
      clock_(clock),
      locale_(locale),
      lookup_(lookup),
      log_(log),
      selection_(table) {}

void RowBuilder::AddTrap(const Trap& trap) {
  const PaintingPause pause(table_);
  selection_.KeepTableSelection(1, false);
  table_.AddItem("", kNewest);
  FillRow(trap);
  while (table_.Rows() > kMostTraps + 1) table_.RemoveItem(table_.Rows() - 1);
  selection_.KeepTableSelection(0, true);
}

void RowBuilder::FillRow(const Trap& trap) {
  const LocalTime now = clock_.Now();
  const LocaleTexts& words = locale_.Texts();
  table_.SetCell(kNewest, 0,
                 FormatMediumDate(now, words).append(kCrLf).append(FormatTime(now, words)));
  table_.SetCell(kNewest, 1, trap.SourceAddress);
  table_.SetCell(kNewest, 2, trap.Community);

  TrapTexts texts = DescribeTrap(trap, settings_, lookup_);
  if (settings_.LoggingEnabled()) log_.WriteToLog(texts.DetailText.append(kCrLf));
  table_.SetRowHeight(kNewest, HeightFor(texts.SummaryText));
  table_.SetCell(kNewest, 3, std::move(texts.DeviceType));
  table_.SetCell(kNewest, 4, std::move(texts.SummaryText));
  table_.SetRowData(kNewest, RowRecord(trap));
}

int RowBuilder::HeightFor(const std::string& summaryText) const {
  const auto lines = 1 + std::count(summaryText.begin(), summaryText.end(), '\r');
  return RoundHalfEven(static_cast<double>(lines) * window_.TextHeight("X") * 1.25);
}

}  // namespace sentrel
