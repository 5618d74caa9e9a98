#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "app/program.h"
#include "dialogs.h"
#include "fakes/free_port.h"

namespace sentrel {

/// The program as a user has it, but that it listens and sends on a port of its own and keeps what
/// it keeps in a folder that goes with the test.
struct ProgramFixture : testing::Test {
  ProgramFixture() {
    EXPECT_TRUE(program.Start());
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&program.Window()));
  }
  QString Peer() const { return QString("127.0.0.1:%1").arg(port); }
  /// As the user does, to the end of what the tool runs: `user` answers its dialogs.
  void Choose(const char* toolId) {
    program.Window().findChild<QAction*>(toolId)->trigger();
    QCoreApplication::processEvents();
  }
  TableView& View() { return *program.Window().findChild<TableView*>("Table"); }

  void AwaitRows(int rows) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Traps().Rows() == rows; }, 10'000));
  }
  void SelectRow1() {
    QTest::keyClick(&View(), Qt::Key_Home);
    ASSERT_EQ(program.Traps().Row(), 1);
  }
  void SaveAs(const QString& file) {
    user.NameFile(file);
    Choose("Edit:SaveTrap");
  }
  /// Runs another program to its end, this one's events being handled meanwhile. Returns its exit
  /// code.
  static int Run(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(tool, arguments);
    EXPECT_TRUE(QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 20'000));
    return process.exitCode();
  }

  QTemporaryDir state;
  std::uint16_t port = FreePort();
  Program program{{.port = port,
                   .sendPort = port,
                   .machineFolder = state.filePath("machine").toStdString(),
                   .userFolder = state.filePath("user").toStdString()}};
  User user;
};

}  // namespace sentrel
