#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

#include "fakes/notification.h"
#include "fakes/table_file.h"
#include "program_fixture.h"
#include "udp_socket.h"

namespace sentrel {
namespace {

struct SendingTest : ProgramFixture {
  void SendTestTrapTo(const char* host) {
    user.When("QDialog", [host](QWidget& dialog) {
      auto* target = dialog.findChild<QComboBox*>("Target");
      QTest::keyClicks(target->lineEdit(), host);
      target->completer()->popup()->hide();
      QTest::mouseClick(dialog.findChild<QPushButton*>("cmdSend"), Qt::LeftButton);
    });
    Choose("Edit:SendTestTrap");
  }
  /// Replays a file to the program. Returns the tool's exit code.
  int Replay(const QString& name) { return Run(REPLAY, {name, Peer()}); }
};

TEST_F(SendingTest, TheTestTrapComesBackAsARow) {
  SendTestTrapTo("localhost");
  AwaitRows(2);
  const std::string start =
      "SOURCEIP=127.0.0.1::COMMUNITY=public::1.3.6.1.2.1.1.3.0=67=0"
      "::1.3.6.1.6.3.1.1.4.1.0=6=1.3.6.1.4.1.58213.10"
      "::1.3.6.1.6.3.1.1.4.3.0=6=1.3.6.1.4.1.58213"
      "::1.3.6.1.4.1.58213.10.1=4=Test trap at ";
  EXPECT_EQ(program.Traps().RowData(1).substr(0, start.size()), start);
  SendTestTrapTo("127.0.0.1");
  AwaitRows(3);
}

TEST_F(SendingTest, ASavedRowReplayedGivesTheSameRow) {
  Settings& options = program.Options();
  auto values = RowsOf(TEST_DATA "/snmp/sendable_values.txt");
  values.push_back({"4", "a=b::c:\\ \"Grüße\"\r\n"});
  values.push_back({"4", "0x476572E47400"});
  values.push_back({"4", std::string(50'000, 'x')});
  std::vector<std::string> ids = {"1.3.6.1.2.1.1.3.0", "1.3.6.1.6.3.1.1.4.1.0"};
  std::vector<std::string> texts = {"4294967295", "1.3.6.1.6.3.1.1.5.3"};
  std::vector<std::int16_t> types = {67, 6};
  for (const auto& value : values) {
    if (value.size() > 2) continue;  // the sender of replays does not know the type
    ids.push_back("1.3.6.1.4.1.58213.1." + std::to_string(ids.size()));
    types.push_back(static_cast<std::int16_t>(std::stoi(value.at(0))));
    texts.push_back(value.at(1));
  }
  const Table& rows = program.Traps();
  int count = 1;
  for (const bool raw : {false, true}) {
    options.SetRaw(raw);
    Sender(port).SendTrap("127.0.0.1", "a=b::c", ids, texts, types);
    AwaitRows(++count);
    SelectRow1();
    const QString name = state.filePath(raw ? "raw.Trap" : "Link down.Trap");
    SaveAs(name);
    EXPECT_EQ(Replay(name), 0);
    AwaitRows(++count);
    EXPECT_EQ(rows.RowData(1), rows.RowData(2));
    for (int col = 1; col < rows.Cols(); ++col) EXPECT_EQ(rows.Cell(1, col), rows.Cell(2, col));
  }
  EXPECT_EQ(rows.RowData(1), rows.RowData(3)) << "a row saves the same however it is shown";
}

TEST_F(SendingTest, WhatCannotBeReplayedIsRefused) {
  SendText("x");
  AwaitRows(2);
  SelectRow1();
  SaveAs(state.filePath("headless.Trap"));
  EXPECT_TRUE(QFile::exists(state.filePath("headless.Trap")));
  EXPECT_EQ(Replay(state.filePath("headless.Trap")), 1);
  EXPECT_EQ(Replay(state.filePath("missing.Trap")), 1);
  EXPECT_EQ(Replay(REPLAY), 1) << "it is no saved trap";

  // A NULL with octets, and a name that is none: snmptrap would send nothing of them, or an error.
  const std::string id = "1.3.6.1.4.1.58213";
  std::string odd = NotificationBytes("public", {id}, {"x"});
  odd[odd.size() - 3] = '\x05';
  std::string unnamed = NotificationBytes("public", {id}, {"x"});
  unnamed[unnamed.size() - 4] = '\x85';
  const std::pair<std::string, std::string> cases[] = {{odd, id + "=5=tag 0x05: 0x78"},
                                                       {unnamed, "::tag 0x06: 0x"}};
  int rows = 2;
  for (const auto& [bytes, field] : cases) {
    test::UdpSocket(port).Send(bytes);
    AwaitRows(++rows);
    EXPECT_THAT(program.Traps().RowData(1), testing::HasSubstr(field));
    EXPECT_THAT(program.Traps().Cell(1, 4), testing::HasSubstr(field.substr(field.find("tag"))));
    SelectRow1();
    const QString name = state.filePath(QString("odd %1.Trap").arg(rows));
    SaveAs(name);
    EXPECT_EQ(Replay(name), 1);
  }
  EXPECT_EQ(program.Traps().Rows(), rows);
}

}  // namespace
}  // namespace sentrel
