#include "console/row_builder.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "common/dates.h"
#include "common/numbers.h"
#include "common/text.h"
#include "console/row_record.h"

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

void RowBuilder::AddTrap(Trap trap) {
  const PaintingPause pause(table_);
  selection_.KeepTableSelection(1, false);
  table_.AddItem(RowOf(std::move(trap)), kNewest);
  while (table_.Rows() > kMostTraps + 1) table_.RemoveItem(table_.Rows() - 1);
  selection_.KeepTableSelection(0, true);
}

RowMaker RowBuilder::RowOf(Trap trap) {
  const bool raw = settings_.Raw();
  std::optional<TrapTexts> texts;
  if (settings_.LoggingEnabled()) {
    texts = DescribeTrap(trap, raw, lookup_);
    log_.WriteToLog(std::exchange(texts->DetailText, {}).append(kCrLf));
  }
  return [this, raw, arrival = clock_.Now(), trap = std::move(trap), texts = std::move(texts)] {
    return Content(trap, arrival, texts ? *texts : DescribeTrap(trap, raw, lookup_));
  };
}

RowContent RowBuilder::Content(const Trap& trap, const LocalTime& arrival, TrapTexts texts) const {
  const LocaleTexts& words = locale_.Texts();
  std::string time = FormatMediumDate(arrival, words).append(kCrLf);
  const int height = HeightFor(texts.SummaryText);
  return {.cells = {std::move(time.append(FormatTime(arrival, words))), trap.SourceAddress,
                    trap.Community, std::move(texts.DeviceType), std::move(texts.SummaryText)},
          .data = RowRecord(trap),
          .height = height};
}

int RowBuilder::HeightFor(const std::string& summaryText) const {
  const auto lines = 1 + std::count(summaryText.begin(), summaryText.end(), '\r');
  return RoundHalfEven(static_cast<double>(lines) * window_.TextHeight("X") * 1.25);
}

}  // namespace sentrel
