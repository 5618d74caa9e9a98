#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "app/program.h"
#include "dialogs.h"
#include "snmp/sender.h"
#include "udp_socket.h"

namespace sentrel {

/// Sends a trap with one binding of this text to a port of this machine.
inline void SendText(std::uint16_t port, const std::string& text,
                     const std::string& community = "public") {
  Sender(port).SendTrap("127.0.0.1", community, {"1.3.6.1.4.1.58213.1"}, {text}, {4});
}

inline ProgramOptions OptionsIn(const std::filesystem::path& folder, std::uint16_t port) {
  return {.port = port,
          .sendPort = port,
          .machineFolder = folder / "machine",
          .userFolder = folder / "user"};
}

inline void LogTo(std::string file, Program& program) {
  program.Options().SetLogFilename(file);
  program.Options().SetLoggingEnabled(true);
}

/// What a next start of the program would find in its folder.
struct Stored {
  explicit Stored(const std::filesystem::path& folder)
      : registry(folder / "machine" / kRegistryFile, folder / "user" / kRegistryFile, clock) {}

  const SystemClock clock;
  SqliteRegistry registry;
  Settings settings{registry};
};

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
  /// Sends a trap with one binding of this text to the program.
  void SendText(const std::string& text, const std::string& community = "public") const {
    sentrel::SendText(port, text, community);
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
  std::uint16_t port = test::FreePort();
  Program program{OptionsIn(state.path().toStdString(), port)};
  User user;
};

}  // namespace sentrel
