#include "console/trap_rows.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "common/dates.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/visible_text.h"
#include "console/row_record.h"
#include "console/table_filter.h"
#include "console/trap_row.h"
#include "console/trap_texts.h"

namespace sentrel {
namespace {

constexpr int kNewest = 1;
constexpr int kSameRow = 0;
constexpr int kOneRowDown = 1;

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

/// As the options were when the trap arrived.
class TrapRows::Row : public TrapRow {
 public:
  Row(const TrapRows& rows, const ArrivedTrap& trap, const LocalTime& arrival, bool raw)
      : TrapRow(trap), rows_(rows), arrival_(arrival), raw_(raw) {}
  RowContent Make() const override { return rows_.Content(Trap(), arrival_, raw_); }

 private:
  const TrapRows& rows_;
  const LocalTime arrival_;
  const bool raw_;
};

TrapRows::TrapRows(const Settings& settings, Table& table, const MainWindow& window,
                   const Clock& clock, const Locale& locale, OidLookup& lookup, TrapLog& log)
    : settings_(settings),
      table_(table),
      window_(window),
      clock_(clock),
      locale_(locale),
      lookup_(lookup),
      log_(log),
      selection_(table) {}

void TrapRows::AddTrap(const ArrivedTrap& trap) {
  const PaintingPause pause(table_);
  const bool raw = settings_.Raw();
  const bool isHidden = filter_ != nullptr && filter_->Hides(trap);
  selection_.KeepTableSelection(isHidden ? kSameRow : kOneRowDown, Restore::No);
  if (settings_.LoggingEnabled()) Log(trap, raw);
  auto row = std::make_shared<Row>(*this, trap, clock_.Now(), raw);
  if (isHidden) {
    table_.AddShelved(std::move(row));
  } else {
    table_.AddItem(std::move(row), kNewest);
  }
  while (table_.Rows() + table_.Shelved() > kMostTraps + 1) table_.RemoveLowest();
  selection_.KeepTableSelection(kSameRow, Restore::Yes);
}

void TrapRows::Log(const ArrivedTrap& trap, bool raw) {
  trap.Read(logged_);
  log_.WriteToLog(VisibleText(DetailText(logged_, raw, lookup_)).append(kCrLf));
}

RowContent TrapRows::Content(const ArrivedTrap& arrived, const LocalTime& arrival, bool raw) const {
  Trap trap;
  arrived.Read(trap);
  TrapTexts texts = DescribeTrap(trap, raw, lookup_);
  const LocaleTexts& words = locale_.Texts();
  std::string time = FormatMediumDate(arrival, words).append(kCrLf);
  const int height = HeightFor(texts.SummaryText);
  return {.cells = {time.append(FormatTime(arrival, words)), trap.SourceAddress,
                    VisibleText(trap.Community), VisibleText(std::move(texts.DeviceType)),
                    VisibleText(std::move(texts.SummaryText))},
          .data = RowRecord(trap),
          .height = height};
}

int TrapRows::HeightFor(const std::string& summaryText) const {
  const auto lines = 1 + std::count(summaryText.begin(), summaryText.end(), '\r');
  return RoundHalfEven(static_cast<double>(lines) * window_.TextHeight("X") * 1.25);
}

}  // namespace sentrel
