#include <malloc.h>

#include <QAbstractScrollArea>
#include <QScrollBar>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "benchmarks.h"
#include "console/trap_rows.h"
#include "desktop/table/table_view.h"
#include "median.h"
#include "process_time.h"
#include "stage.h"
#include "toolkit_view.h"
#include "watched_application.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;

constexpr int kColumnWidth = 200;
constexpr int kMostLinesOfRow = 10;
constexpr int kLinesOfTallRow = 500;
constexpr QSize kWindow{900, 500};

/// A table that is filled like the window's, and counts the rows that somebody looked at.
struct FilledTable {
  FilledTable() {
    table.SetCols(5);
    table.SetWholeRows(true);
    for (int col = 0; col < table.Cols(); ++col) table.SetColWidth(col, kColumnWidth);
  }
  void AddTrap(int lines) {
    table.SetRedraw(0);
    table.AddItem(std::make_shared<Row>(*this, lines), 1);
    while (table.Rows() > kMostTraps + 1) table.RemoveItem(kMostTraps + 1);
    table.SetRedraw(1);
  }
  void AddTraps(int count) {
    for (int i = 0; i < count; ++i) AddTrap(1 + i % kMostLinesOfRow);
  }
  struct Row : RowSource {
    Row(FilledTable& owner, int count) : table(owner), lines(count) {}
    RowContent Make() const override { return table.Content(lines); }

    FilledTable& table;
    const int lines;
  };
  RowContent Content(int lines) {
    ++made;
    std::string details = "ifOperStatus.1 = down(2)";
    for (int line = 1; line < lines; ++line) details += "\r\nifOperStatus.1 = down(2)";
    return {.cells = {"05-Dec-26\r\n03:49 PM", "192.0.2.7", "public", "Sentrel", details},
            .data = "",
            .height = 0};
  }

  Table table;
  int made = 0;
};

struct Figures {
  double stormCost;  // microseconds of processor time a trap
  double stormMade;  // rows made, of 1,000
  double insertion;  // milliseconds from the trap to the end of its painting, median
  double page;       // the same for a page of scrolling
  double tallPage;   // the same within rows that are taller than the window
  double memory;     // kilobytes of heap that the view takes for a full table
};

double HeapKilobytes() {
  return static_cast<double>(mallinfo2().uordblks) / 1024;
}

/// Handles events until the viewport has been painted. Returns the milliseconds since `begin`.
double AwaitPainting(const QWidget& viewport, WatchedApplication::Clock::time_point begin) {
  auto& application = *static_cast<WatchedApplication*>(QCoreApplication::instance());
  bool painted = false;
  application.delivered = [&](const QObject& receiver, QEvent::Type type, bool) {
    painted = painted || (type == QEvent::Paint && &receiver == &viewport);
  };
  while (!painted) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  application.delivered = nullptr;
  return std::chrono::duration<double, std::milli>(WatchedApplication::Clock::now() - begin)
      .count();
}

void MeasureStorm(FilledTable& traps, Figures& figures) {
  constexpr int kTraps = 40'000;
  constexpr int kBatch = 160;
  const int madeBefore = traps.made;
  const double before = OwnSeconds();
  for (int sent = 0; sent < kTraps; sent += kBatch) {
    traps.AddTraps(kBatch);
    Stage::Play(8ms);
  }
  figures.stormCost = (OwnSeconds() - before) * 1e6 / kTraps;
  figures.stormMade = 1000.0 * (traps.made - madeBefore) / kTraps;
}

double MeasureInsertion(FilledTable& traps, const QWidget& viewport) {
  std::vector<double> times;
  for (int i = 0; i < 60; ++i) {
    Stage::Play(30ms);
    const auto begin = WatchedApplication::Clock::now();
    traps.AddTraps(1);
    times.push_back(AwaitPainting(viewport, begin));
  }
  return Median(times);
}

double MeasurePages(QAbstractScrollArea& view) {
  std::vector<double> times;
  QScrollBar& bar = *view.verticalScrollBar();
  bar.setValue(0);
  for (int i = 0; i < 60 && bar.value() < bar.maximum(); ++i) {
    Stage::Play(20ms);
    const auto begin = WatchedApplication::Clock::now();
    bar.triggerAction(QScrollBar::SliderPageStepAdd);
    times.push_back(AwaitPainting(*view.viewport(), begin));
  }
  bar.setValue(0);
  return times.empty() ? 0 : Median(times);
}

void MakeAll(const Table& table) {
  for (int row = 1; row < table.Rows(); ++row) table.RowHeight(row);
}

template <typename View>
Figures Measure() {
  Figures figures{};
  FilledTable traps;
  traps.AddTraps(kMostTraps);
  MakeAll(traps.table);
  const double heapBefore = HeapKilobytes();
  View view(traps.table);
  view.resize(kWindow);
  view.show();
  traps.AddTraps(kMostTraps);
  Stage::Play(500ms);
  figures.page = MeasurePages(view);
  figures.insertion = MeasureInsertion(traps, *view.viewport());
  MeasureStorm(traps, figures);
  MakeAll(traps.table);
  figures.memory = HeapKilobytes() - heapBefore;
  for (int i = 0; i < 10; ++i) traps.AddTrap(kLinesOfTallRow);
  Stage::Play(500ms);
  figures.tallPage = MeasurePages(view);
  return figures;
}

void Print(const char* what, const char* unit, double Figures::*figure,
           const std::vector<Figures>& ours, const std::vector<Figures>& toolkits) {
  std::vector<double> of;
  std::vector<double> to;
  for (const Figures& turn : ours) to.push_back(turn.*figure);
  for (const Figures& turn : toolkits) of.push_back(turn.*figure);
  std::printf("  %-44s %9.2f %9.2f %-3s %6.1f\n", what, Median(to), Median(of), unit,
              MedianRatio(of, to));
}

}  // namespace

int RunViews() {
  constexpr int kTurns = 5;
  std::vector<Figures> ours;
  std::vector<Figures> toolkits;
  for (int turn = 0; turn < kTurns; ++turn) {
    ours.push_back(Measure<TableView>());
    toolkits.push_back(Measure<ToolkitView>());
  }
  std::printf("999 rows of 1 to %d lines: Sentrel's view, the toolkit's, ratio\n", kMostLinesOfRow);
  Print("processor time a trap, in a storm", "us", &Figures::stormCost, ours, toolkits);
  Print("rows made of 1,000, in a storm", "", &Figures::stormMade, ours, toolkits);
  Print("a single trap to the end of its painting", "ms", &Figures::insertion, ours, toolkits);
  Print("a page of scrolling", "ms", &Figures::page, ours, toolkits);
  Print("the same in rows taller than the window", "ms", &Figures::tallPage, ours, toolkits);
  Print("heap of the view with a full table", "KB", &Figures::memory, ours, toolkits);
  return EXIT_SUCCESS;
}

}  // namespace sentrel::bench
