#include "desktop/reception/reception_window.h"

#include <gmock/gmock.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include "fakes/fake_console.h"
#include "fakes/fake_mib_library.h"
#include "fakes/fake_network_facts.h"
#include "fakes/fake_reception_monitor.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_version3_users.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

struct ReceptionWindowTest : testing::Test {
  void Open(int page) {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.findChild<QTabWidget*>("Pages")->setCurrentIndex(page);
  }
  ListView& List(const char* name) { return *window.findChild<ListView*>(name); }
  std::vector<std::string> Column(const char* list, int col) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(List(list).rowCount()));
    for (int row = 0; row < List(list).rowCount(); ++row) {
      texts.push_back(List(list).item(row, col)->text().toStdString());
    }
    return texts;
  }
  void Click(const char* button) {
    QTest::mouseClick(window.findChild<QPushButton*>(button), Qt::LeftButton);
  }
  void ClickRow(const char* list, int row) {
    QTest::mouseClick(List(list).viewport(), Qt::LeftButton, {},
                      List(list).visualItemRect(List(list).item(row, 0)).center());
  }
  SeenDatagram Seen(const std::string& sender, Outcome outcome) {
    SeenDatagram seen;
    seen.arrival = std::chrono::system_clock::time_point(std::chrono::seconds(++seconds));
    seen.sender = sender;
    seen.community = "<b>secret</b>";
    seen.outcome = outcome;
    return seen;
  }
  bool Await(const std::function<bool()>& condition) { return QTest::qWaitFor(condition); }

  int seconds = 0;
  FakeReceptionMonitor monitor;
  FakeRegistry registry;
  Settings settings{registry};
  FakeMibLibrary mibs;
  Watch watch{monitor, settings, mibs};
  QWidget owner;
  FakeNetworkFacts network;
  CallLog calls;
  FakeSNMP snmp{calls};
  FakeVersion3Users users;
  SelfCheck check{monitor, network, settings, users, snmp, watch};
  ReceptionWindow window{monitor, watch, check, &owner};
};

TEST_F(ReceptionWindowTest, CountsAndTheRemedyOfTheChosenLine) {
  monitor.Count(Outcome::kWrongDigest, 12);
  Open(0);
  const auto reasons = Column("Reasons", 0);
  const auto row = std::ranges::find(reasons, "Wrong passphrase or algorithm") - reasons.begin();
  EXPECT_EQ(Column("Reasons", 1)[static_cast<std::size_t>(row)], "12");
  ClickRow("Reasons", static_cast<int>(row));
  const auto* remedy = window.findChild<QLabel*>("Remedy");
  EXPECT_TRUE(remedy->text().startsWith("Enter the authentication passphrase again"));
  EXPECT_EQ(List("Reasons").accessibleName(), "Reasons");
  EXPECT_EQ(window.property("helpTopic"), "Reception");
}

TEST_F(ReceptionWindowTest, RefusedOnesComeOnTopAndTheSelectionStaysOnItsRow) {
  monitor.refused = {Seen("10.0.0.1", Outcome::kNotSnmp)};
  Open(1);
  EXPECT_THAT(Column("RefusedTraps", 1), ElementsAre("10.0.0.1"));
  EXPECT_THAT(Column("RefusedTraps", 3), ElementsAre("<b>secret</b>"));
  ClickRow("RefusedTraps", 0);
  monitor.refused.insert(monitor.refused.begin(), Seen("10.0.0.2", Outcome::kNotSnmp));
  monitor.refused.insert(monitor.refused.begin(), Seen("10.0.0.3", Outcome::kTruncated));
  EXPECT_TRUE(Await([&] { return List("RefusedTraps").rowCount() == 3; }));
  EXPECT_THAT(Column("RefusedTraps", 1), ElementsAre("10.0.0.3", "10.0.0.2", "10.0.0.1"));
  EXPECT_EQ(List("RefusedTraps").SelectedRow(), 2);
  EXPECT_TRUE(window.findChild<QLabel*>("Refusal")->text().startsWith("Not SNMP\n"));
  monitor.refused.pop_back();
  EXPECT_TRUE(Await([&] { return List("RefusedTraps").rowCount() == 2; }));
  Click("CopyAll");
  const QString copied = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(copied.contains("10.0.0.3") && !copied.contains("secret"));
}

TEST_F(ReceptionWindowTest, WatchLeadsToWhatKeepsADatagramOutAndEndsWithTheWindow) {
  settings.SetDeviceFilterActive(true);
  std::vector<std::string> wanted;
  QObject::connect(&window, &ReceptionWindow::CureWanted, [&](const WatchedDatagram& datagram) {
    wanted.push_back(datagram.seen.sender);
  });
  Open(2);
  Click("StartOrStop");
  EXPECT_TRUE(monitor.watching);
  monitor.watched = {Seen("10.0.0.1", Outcome::kAccepted), Seen("10.0.0.2", Outcome::kNotSnmp)};
  EXPECT_TRUE(Await([&] { return List("Watch").rowCount() == 2; }));
  EXPECT_THAT(Column("Watch", 5), ElementsAre("no device filter fits 10.0.0.1", "Not SNMP"));
  ClickRow("Watch", 1);
  Click("Cure");
  ClickRow("Watch", 0);
  Click("Cure");
  EXPECT_THAT(wanted, ElementsAre("10.0.0.1"));
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible() || monitor.watching);
}

TEST_F(ReceptionWindowTest, TheCheckTellsItsStepsAndGivesACommandToCopy) {
  Open(3);
  EXPECT_EQ(List("Check").rowCount(), 0);
  Click("RunCheck");
  EXPECT_TRUE(watch.IsOn());
  EXPECT_THAT(Column("Check", 1), testing::Contains("Look here"));
  ClickRow("Check", 0);
  EXPECT_EQ(window.findChild<QLineEdit*>("Command")->text(), "sudo ss -lunp 'sport = :162'");
  Click("CopyCommand");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "sudo ss -lunp 'sport = :162'");
  Click("CopyAll");
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("Port: Look here. Sentrel does not"));
}

}  // namespace
}  // namespace sentrel
