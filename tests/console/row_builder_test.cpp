#include "console/row_builder.h"

#include <gmock/gmock.h>

#include "console/row_record.h"
#include "fakes/fake_console.h"

namespace sentrel {
namespace {

constexpr const char* kEnterprise = "1.3.6.1.6.3.1.1.4.3.0";
const std::string kIndent(18, ' ');

Trap TrapOf(std::vector<std::pair<std::string, std::string>> bindings) {
  Trap trap{"192.0.2.7", "public", {}, {}, {}};
  for (auto& [oid, value] : bindings) {
    trap.OIDs.push_back(oid);
    trap.DataTypes.push_back(4);
    trap.Values.push_back(value);
  }
  return trap;
}

Trap LinkDown() {
  return {"192.0.2.7",
          "public",
          {"1.3.6.1.2.1.1.3.0", "1.3.6.1.6.3.1.1.4.1.0", kEnterprise},
          {67, 6, 6},
          {"12345", "1.3.6.1.6.3.1.1.5.3", "1.3.6.1.4.1.9"}};
}

struct RowBuilderTest : testing::Test {
  RowBuilderTest() {
    table.SetCols(5);
    table.SetWholeRows(true);
  }
  void AddTraps(int count) {
    for (int i = 0; i < count; ++i) builder.AddTrap(TrapOf({{"1.2", std::to_string(++added)}}));
  }
  std::string Details(int row) { return table.Cell(row, 4); }

  CallLog log;
  FakeMainWindow window{log};
  FakeClock clock;
  FakeLocale locale;
  Settings settings;
  Table table;
  RowBuilder builder{settings, table, window, clock, locale};
  int added = 0;
};

TEST_F(RowBuilderTest, FillsTheCellsAndTheRecord) {
  settings.SetRaw(true);
  builder.AddTrap(LinkDown());
  EXPECT_EQ(table.Cell(1, 0), "05-Dec-26\r\n03:49 PM");
  EXPECT_EQ(table.Cell(1, 1), "192.0.2.7");
  EXPECT_EQ(table.Cell(1, 2), "public");
  EXPECT_EQ(table.Cell(1, 3), "1.3.6.1.4.1.9");
  EXPECT_EQ(Details(1),
            "1.3.6.1.2.1.1.3.0 = 12345\r\n1.3.6.1.6.3.1.1.4.1.0 = 1.3.6.1.6.3.1.1.5.3");
  EXPECT_EQ(table.RowData(1),
            "SOURCEIP=192.0.2.7::COMMUNITY=public::1.3.6.1.2.1.1.3.0=67=12345::"
            "1.3.6.1.6.3.1.1.4.1.0=6=1.3.6.1.6.3.1.1.5.3::1.3.6.1.6.3.1.1.4.3.0=6=1.3.6.1.4.1.9");
}

TEST_F(RowBuilderTest, TheHeightFollowsTheLinesOfTheDetails) {
  builder.AddTrap(TrapOf({}));
  EXPECT_EQ(table.RowHeight(1), 12) << "12.5 goes to the even number";
  builder.AddTrap(TrapOf({{kEnterprise, "e"}}));
  EXPECT_EQ(table.RowHeight(1), 12);
  builder.AddTrap(TrapOf({{"1.2", "a"}, {"1.3", "b"}, {"1.4", "c\r\nd"}}));
  EXPECT_EQ(table.RowHeight(1), 50);
}

TEST_F(RowBuilderTest, HoldsTheNewestTraps) {
  AddTraps(kMostTraps);
  EXPECT_EQ(table.Rows(), 1000);
  EXPECT_EQ(Details(999), "1.2 = 1");
  AddTraps(1);
  EXPECT_EQ(table.Rows(), 1000);
  EXPECT_EQ(Details(999), "1.2 = 2");
  EXPECT_EQ(Details(1), "1.2 = 1000");
}

TEST_F(RowBuilderTest, TheSelectionStaysOnItsTraps) {
  AddTraps(8);
  for (const auto& [row, rowSel] : {std::pair{3, 5}, {5, 3}}) {
    table.SetRow(row);
    table.SetRowSel(rowSel);
    const std::string selected = Details(row);
    AddTraps(1);
    EXPECT_EQ(table.Row(), row + 1);
    EXPECT_EQ(table.RowSel(), rowSel + 1);
    EXPECT_EQ(Details(table.Row()), selected);
  }
}

TEST_F(RowBuilderTest, ASelectedTrapMayFallOut) {
  AddTraps(kMostTraps);
  table.SetRow(999);
  AddTraps(1);
  EXPECT_EQ(table.Rows(), 1000);
  EXPECT_EQ(table.Row(), 999);
  table.SetRow(997);
  table.SetRowSel(999);
  AddTraps(1);
  EXPECT_EQ(table.Row(), 998) << "what still exists stays selected";
}

TEST_F(RowBuilderTest, PaintingResumesAfterAFailure) {
  struct Observer : TableObserver {
    void RowInserted(int) override {}
    void RowRemoved(int) override {}
    void TableChanged() override { ++paints; }
    int paints = 0;
  } observer;
  table.SetCols(1);
  table.SetObserver(&observer);
  EXPECT_THROW(builder.AddTrap(TrapOf({})), Failure);
  EXPECT_EQ(observer.paints, 1);
  table.SetObserver(nullptr);
}

TEST(TrapTexts, TellTheEnterpriseApart) {
  struct Case {
    Trap trap;
    std::string deviceType, summary, detail;
  };
  const Case cases[] = {
      {TrapOf({}), "", "", "192.0.2.7\r\n"},
      {TrapOf({{kEnterprise, "e"}}), "e", "", "192.0.2.7\r\n" + kIndent + "Enterprise = e"},
      {TrapOf({{kEnterprise, "e"}, {"1.2", "a"}, {"1.3", "b"}}), "e", "1.2 = a\r\n1.3 = b",
       "192.0.2.7\r\n" + kIndent + "Enterprise = e" + kIndent + "1.2 = a\r\n" + kIndent +
           "1.3 = b"},
      {TrapOf({{"1.2", "a"}, {kEnterprise, "e"}, {"1.3", ""}}), "e", "1.2 = a\r\n1.3 = ",
       "192.0.2.7\r\n" + kIndent + "1.2 = a\r\n" + kIndent + "Enterprise = e\r\n" + kIndent +
           "1.3 = "},
      {TrapOf({{kEnterprise, "e"}, {"1.2", "a"}, {kEnterprise, "f"}}), "f", "1.2 = a",
       "192.0.2.7\r\n" + kIndent + "Enterprise = e" + kIndent + "1.2 = a\r\n" + kIndent +
           "Enterprise = f"},
      {TrapOf({{"1.3.6.1.6.3.1.1.4.3", "e"}}), "", "1.3.6.1.6.3.1.1.4.3 = e",
       "192.0.2.7\r\n" + kIndent + "1.3.6.1.6.3.1.1.4.3 = e"},
  };
  Settings settings;
  settings.SetRaw(true);
  for (const Case& c : cases) {
    const TrapTexts texts = DescribeTrap(c.trap, settings);
    EXPECT_EQ(texts.DeviceType, c.deviceType);
    EXPECT_EQ(texts.SummaryText, c.summary);
    EXPECT_EQ(texts.DetailText, c.detail);
  }
}

TEST(TrapTexts, NothingIsReadBeyondTheShortestList) {
  Trap trap = LinkDown();
  trap.Values.pop_back();
  trap.DataTypes.resize(1);
  Settings settings;
  EXPECT_EQ(DescribeTrap(trap, settings).SummaryText.find("1.3.6.1.6.3"), std::string::npos);
  EXPECT_EQ(RowRecord(trap), "SOURCEIP=192.0.2.7::COMMUNITY=public::1.3.6.1.2.1.1.3.0=67=12345");
}

TEST(RowRecord, EscapesOnlyWhatWouldBreakIt) {
  struct Case {
    const char* value;
    const char* field;
  };
  const Case cases[] = {
      {"plain = text", "plain = text"}, {"a:b", "a:b"},        {"a::b", "a\\:\\:b"},
      {":a", "\\:a"},                   {"a:", "a\\:"},        {"C:\\x", "C:\\\\x"},
      {"", ""},                         {"fe80::1", "fe80\\:\\:1"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(RowRecord(TrapOf({{"1.2", c.value}})),
              std::string("SOURCEIP=192.0.2.7::COMMUNITY=public::1.2=4=") + c.field);
  }
}

}  // namespace
}  // namespace sentrel
