#include "console/trap_rows.h"

#include "common/text.h"
#include "console/row_record.h"
#include "console/trap_texts.h"
#include "console_fixture.h"

namespace sentrel {
namespace {

const std::string kIndent(18, ' ');

Trap LinkDown() {
  return {"192.0.2.7",
          "public",
          {"1.3.6.1.2.1.1.3.0", "1.3.6.1.6.3.1.1.4.1.0", kEnterprise},
          {67, 6, 6},
          {"12345", "1.3.6.1.6.3.1.1.5.3", "1.3.6.1.4.1.9"}};
}

struct TrapRowsTest : ConsoleTest {
  void AddTraps(int count) {
    for (int i = 0; i < count; ++i) builder.AddTrap(TrapOf({{"1.2", std::to_string(++added)}}));
  }
  void LogTo(std::string filename) { settings.SetLogFilename(filename); }
  std::string Details(int row) { return table.Cell(row, 4); }
  std::string& Logged(const char* file) { return logFile.contents[file]; }

  int added = 0;
};

TEST_F(TrapRowsTest, FillsTheCellsAndTheRecord) {
  settings.SetRaw(true);
  builder.AddTrap(LinkDown());
  clock.now.hour = 3;  // a row tells when its trap came, whenever it is looked at
  const char* cells[] = {
      "05-Dec-26\r\n03:49 PM", "192.0.2.7", "public", "1.3.6.1.4.1.9",
      "1.3.6.1.2.1.1.3.0 = 12345\r\n1.3.6.1.6.3.1.1.4.1.0 = 1.3.6.1.6.3.1.1.5.3"};
  for (int col = 0; col < 5; ++col) EXPECT_EQ(table.Cell(1, col), cells[col]);
  EXPECT_EQ(table.RowData(1),
            "SOURCEIP=192.0.2.7::COMMUNITY=public::1.3.6.1.2.1.1.3.0=67=12345::"
            "1.3.6.1.6.3.1.1.4.1.0=6=1.3.6.1.6.3.1.1.5.3::1.3.6.1.6.3.1.1.4.3.0=6=1.3.6.1.4.1.9");
}

TEST_F(TrapRowsTest, DecodesWhatPeopleReadAndNothingElse) {
  mibs.entries["1.3.6.1.2.1.1.3.0"] = {"sysUpTime.0", {}};
  mibs.entries["1.3.6.1.6.3.1.1.4.1.0"] = {"snmpTrapOID.0", {}};
  mibs.entries["1.3.6.1.6.3.1.1.5.3"] = {"linkDown", {}};
  mibs.entries["1.3.6.1.4.1.9"] = {"cisco", {}};
  settings.SetRaw(true);
  builder.AddTrap(LinkDown());
  settings.SetRaw(false);
  builder.AddTrap(LinkDown());
  EXPECT_EQ(table.Cell(1, 3), "cisco");
  EXPECT_EQ(Details(1), "sysUpTime = 12345\r\nsnmpTrapOID = linkDown");
  EXPECT_EQ(table.RowData(1), table.RowData(2));
  EXPECT_EQ(table.Cell(2, 3), "1.3.6.1.4.1.9") << "a row that is shown keeps its form";
  decoder.Forget();
  mibs.failing = "MakeOIDObject";
  builder.AddTrap(LinkDown());
  EXPECT_EQ(table.Cell(1, 3), "1.3.6.1.4.1.9") << "an enterprise without a name stands raw";
  EXPECT_EQ(Details(1), " = \r\n = ");
}

TEST_F(TrapRowsTest, RowAndLogShowEveryCharacterAndTheRecordKeepsThem) {
  LogTo("a.log");
  settings.SetLoggingEnabled(true);
  Trap trap = TrapOf({{"1.2", "a\u202Eb\r\n\tc"}, {kEnterprise, "e\u2066"}});
  trap.Community = "pub\u200Blic";
  builder.AddTrap(trap);
  EXPECT_EQ(table.Cell(1, 2), "pub<U+200B>lic");
  EXPECT_EQ(table.Cell(1, 3), "e<U+2066>");
  EXPECT_EQ(Details(1), "1.2 = a<U+202E>b\r\n\tc");
  EXPECT_NE(Logged("a.log").find("1.2 = a<U+202E>b"), std::string::npos);
  EXPECT_EQ(ReadRowRecord(table.RowData(1)).Values, trap.Values);
}

TEST_F(TrapRowsTest, OctetsThatAreMostLikelyTextAreShownAsText) {
  Trap text = TrapOf({{"1.2", "0x476572E474"},
                      {"1.2", "0x312E332E3900"},
                      {"1.2", "0xE4"},
                      {"1.2", "0x476572E474"}});
  text.HexOctets = {0, 1, 2};
  mibs.entries["1.3.9"] = {"nine", {}};
  EXPECT_EQ(DescribeTrap(text, false, lookup).SummaryText,
            "1.2 = Gerät\r\n1.2 = nine\r\n1.2 = 0xE4\r\n1.2 = 0x476572E474")
      << "the last is a text";
  EXPECT_EQ(DescribeTrap(text, true, lookup).SummaryText,
            "1.2 = Gerät\r\n1.2 = 1.3.9\r\n1.2 = 0xE4\r\n1.2 = 0x476572E474");
  EXPECT_NE(DetailText(text, false, lookup).find("1.2 = Gerät\r\n"), std::string::npos);
  EXPECT_NE(RowRecord(text).find("=4=0x476572E474::"), std::string::npos);
}

TEST_F(TrapRowsTest, LogsOnlyWhileLoggingIsOn) {
  LogTo("a.log");
  builder.AddTrap(TrapOf({{"1.2", "a"}}));
  EXPECT_TRUE(logFile.contents.empty());
  settings.SetLoggingEnabled(true);
  builder.AddTrap(TrapOf({}));
  builder.AddTrap(TrapOf({{"1.2", "a"}, {kEnterprise, "e"}}));
  EXPECT_EQ(Logged("a.log"),
            "Dec-05 15:49:37   192.0.2.7\r\n\r\n\r\n"
            "Dec-05 15:49:37   192.0.2.7\r\n" +
                kIndent + "1.2 = a\r\n" + kIndent + "Enterprise = e\r\n\r\n");
}

TEST_F(TrapRowsTest, LogEntriesFollowInOrderToTheFileOfTheMomentAndMayBeLost) {
  log.WriteToLog("no name\r\n");
  LogTo("a.log");
  log.WriteToLog("1\r\n");
  logFile.failing = true;
  log.WriteToLog("disk full\r\n");
  logFile.failing = false;
  log.WriteToLog("2\r\n");
  LogTo("~/b.log");
  clock.now = {2027, 3, 1, 0, 0, 9};
  locale.texts.months[2] = "Mär";
  log.WriteToLog("3\r\n");
  EXPECT_EQ(Logged("a.log"), "Dec-05 15:49:37   1\r\n\r\nDec-05 15:49:37   2\r\n\r\n");
  EXPECT_EQ(Logged("/home/ann/b.log"), "Mär-01 00:00:09   3\r\n\r\n");
  EXPECT_EQ(logFile.contents.size(), 2U);
}

TEST_F(TrapRowsTest, TheHeightFollowsTheLinesOfTheDetails) {
  const std::pair<Trap, int> cases[] = {
      {TrapOf({}), 12},  // 12.5 goes to the even number
      {TrapOf({{kEnterprise, "e"}}), 12},
      {TrapOf({{"1.2", "a"}, {"1.3", "b"}, {"1.4", "c\r\nd"}}), 50}};
  for (const auto& [trap, height] : cases) {
    builder.AddTrap(trap);
    EXPECT_EQ(table.RowHeight(1), height);
  }
}

TEST_F(TrapRowsTest, HoldsTheNewestTrapsAndKeepsTheSelectionOnThoseThatRemain) {
  AddTraps(kMostTraps);
  EXPECT_EQ(table.Rows(), 1000);
  const struct {
    int row, rowSel, rowAfter, rowSelAfter;
  } cases[] = {{3, 5, 4, 6}, {5, 3, 6, 4}, {999, 999, 999, 999}, {997, 999, 998, 998}};
  for (const auto& c : cases) {
    table.SetRow(c.row);
    table.SetRowSel(c.rowSel);
    AddTraps(1);
    EXPECT_EQ(table.Rows(), 1000);
    EXPECT_EQ(Details(1), "1.2 = " + std::to_string(added));
    EXPECT_EQ(Details(999), "1.2 = " + std::to_string(added - 998));
    EXPECT_EQ(std::pair(table.Row(), table.RowSel()), std::pair(c.rowAfter, c.rowSelAfter));
  }
}

TEST_F(TrapRowsTest, PaintingResumesAfterAFailure) {
  struct Observer : TableObserver {
    void RowInserted(int) override {}
    void RowRemoved(int) override {}
    void TableChanged() override { ++paints; }
    int paints = 0;
  } observer;
  struct StoppedClock : Clock {
    LocalTime Now() const override { throw Failure("It has stopped."); }
  } stopped;
  TrapRows failing(settings, table, window, stopped, locale, lookup, log);
  table.SetObserver(&observer);
  EXPECT_THROW(failing.AddTrap(TrapOf({})), Failure);
  table.SetRuleColor(1);
  EXPECT_EQ(observer.paints, 1);
  table.SetObserver(nullptr);
}

TEST_F(TrapRowsTest, TellsTheEnterpriseApart) {
  // The detail text without its first line; "|" stands where only decoded traps have a line end.
  const struct {
    Trap trap;
    std::string deviceType, summary, detail;
  } cases[] = {
      {TrapOf({}), "", "", ""},
      {TrapOf({{kEnterprise, "e"}}), "e", "", "|" + kIndent + "Enterprise = e"},
      {TrapOf({{kEnterprise, "e"}, {"1.2", "a"}, {"1.3", "b"}}), "e", "1.2 = a\r\n1.3 = b",
       "|" + kIndent + "Enterprise = e" + kIndent + "1.2 = a\r\n" + kIndent + "1.3 = b"},
      {TrapOf({{"1.2", "a"}, {kEnterprise, "e"}, {"1.3", ""}}), "e", "1.2 = a\r\n1.3 = ",
       kIndent + "1.2 = a\r\n" + kIndent + "Enterprise = e\r\n" + kIndent + "1.3 = "},
      {TrapOf({{kEnterprise, "e"}, {"1.2", "a"}, {kEnterprise, "f"}}), "f", "1.2 = a",
       "|" + kIndent + "Enterprise = e" + kIndent + "1.2 = a\r\n" + kIndent + "Enterprise = f"},
      {TrapOf({{"1.3.6.1.6.3.1.1.4.3", "e"}}), "", "1.3.6.1.6.3.1.1.4.3 = e",
       kIndent + "1.3.6.1.6.3.1.1.4.3 = e"},
  };
  for (const bool raw : {true, false}) {
    for (const auto& c : cases) {
      const TrapTexts texts = DescribeTrap(c.trap, raw, lookup);
      EXPECT_EQ(texts.DeviceType, c.deviceType);
      EXPECT_EQ(texts.SummaryText, c.summary);
      EXPECT_EQ(DetailText(c.trap, raw, lookup),
                "192.0.2.7\r\n" + ReplaceAll(c.detail, "|", raw ? "" : "\r\n"));
    }
  }
}

/// Every line of the log after the first begins with 18 blanks at a binding, with 22 within one.
TEST_F(TrapRowsTest, NoTextBeginsAnEntryOrABindingOfTheLog) {
  const std::string forged = "Dec-05 15:49:37   192.0.2.66";
  // A value and what the log has of it, with "|" before each further line.
  const std::pair<std::string, std::string> cases[] = {
      {"a\r\n\r\n" + forged, "a|" + forged},
      {"\n                  1.9 = b\n", "|                  1.9 = b"},
      {"a\rb\n\rc", "a|b|c"},
      {"a\vb\fc\x1C"
       "d\u0085"
       "e\u2028"
       "f\u2029"
       "g",
       "a|b|c|d|e|f|g"},
      {"a\n \t\n\u00A0\u3000\n\u00A0b", "a|\u00A0b"},
      {"Gerät\x85\xE2\x80\nb", "Gerät\x85\xE2\x80|b"},
  };
  const auto entry = [&](const std::string& lines) {
    return "192.0.2.7\r\n" + kIndent + ReplaceAll(lines, "|", "\r\n" + kIndent + "    ");
  };
  for (const bool raw : {true, false}) {
    for (const auto& [value, logged] : cases) {
      EXPECT_EQ(DetailText(TrapOf({{"1.2", value}}), raw, lookup), entry("1.2 = " + logged));
      const Trap enterprise = TrapOf({{"1.2", "a"}, {kEnterprise, value}});
      EXPECT_THAT(DetailText(enterprise, raw, lookup),
                  testing::EndsWith(entry("Enterprise = " + logged).substr(9)));
      EXPECT_EQ(DescribeTrap(TrapOf({{"1.2", value}}), raw, lookup).SummaryText, "1.2 = " + value)
          << "the table keeps the line ends";
    }
  }
  mibs.entries["1.3.1"] = {"name\n" + forged, {{1, "up\n" + forged}}};
  EXPECT_EQ(DetailText(TrapOf({{"1.3.1", "1"}}), false, lookup),
            entry("name|" + forged + " = up|" + forged));
}

TEST_F(TrapRowsTest, NothingIsReadBeyondTheShortestList) {
  Trap trap = LinkDown();
  trap.Values.pop_back();
  trap.DataTypes.resize(1);
  EXPECT_EQ(DescribeTrap(trap, settings.Raw(), lookup).SummaryText, "1.3.6.1.2.1.1.3 = 12345");
  EXPECT_EQ(RowRecord(trap), "SOURCEIP=192.0.2.7::COMMUNITY=public::1.3.6.1.2.1.1.3.0=67=12345");
}

}  // namespace
}  // namespace sentrel
