#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/program.h"
#include "fakes/free_port.h"
#include "snmp/sender.h"

namespace sentrel {
namespace {

constexpr const char* kFolder = "SENTREL_TEST_FOLDER";

ProgramOptions OptionsIn(const QDir& folder) {
  const std::uint16_t port = FreePort();
  return {.port = port,
          .sendPort = port,
          .machineFolder = folder.filePath("machine").toStdString(),
          .userFolder = folder.filePath("user").toStdString()};
}

std::string LogIn(const QDir& folder) {
  return folder.filePath("traps.log").toStdString();
}

std::string SentIn(const QDir& folder) {
  return folder.filePath("sent").toStdString();
}

QByteArray Contents(const std::string& path) {
  QFile file(QString::fromStdString(path));
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// Run by the test below, in a process and on a display of its own.
TEST(DISABLED_OnADisplay, TheProgramLogsTraps) {
  const QDir folder(qEnvironmentVariable(kFolder));
  const ProgramOptions options = OptionsIn(folder);
  Program program(options);
  ASSERT_TRUE(program.Start());
  std::string log = LogIn(folder);
  program.Options().SetLogFilename(log);
  program.Options().SetLoggingEnabled(true);
  // Told of only when they are on the way.
  QFile sent(QString::fromStdString(SentIn(folder)));
  ASSERT_TRUE(sent.open(QFile::WriteOnly | QFile::Unbuffered));
  QTimer storm;
  QObject::connect(&storm, &QTimer::timeout, [&] {
    Sender(options.sendPort)
        .SendTrap("127.0.0.1", "public", {"1.3.6.1.4.1.58213.1"}, {"whole"}, {4});
    sent.write(".");
  });
  storm.start(1);
  QApplication::exec();
}

TEST(Display, ItsLossEndsTheProgramAndHarmsNoFile) {
  if (QStandardPaths::findExecutable("Xvfb").isEmpty()) GTEST_SKIP() << "there is no Xvfb";
  const QTemporaryDir folder;
  QProcess display;
  display.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp"});
  ASSERT_TRUE(display.waitForReadyRead(20'000));
  const QString number = display.readLine().trimmed();

  QProcess program;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", ":" + number);
  environment.insert("QT_QPA_PLATFORM", "xcb");
  environment.insert("HOME", folder.path());
  environment.insert(kFolder, folder.path());
  program.setProcessEnvironment(environment);
  program.setProcessChannelMode(QProcess::MergedChannels);
  program.start(QCoreApplication::applicationFilePath(),
                {"--gtest_also_run_disabled_tests", "--gtest_filter=DISABLED_OnADisplay.*"});
  const std::string log = LogIn(folder.path());
  ASSERT_TRUE(QTest::qWaitFor([&] { return Contents(log).count("whole") >= 100; }, 60'000))
      << program.readAll().toStdString();
  display.kill();
  ASSERT_TRUE(QTest::qWaitFor([&] { return program.state() == QProcess::NotRunning; }, 20'000));
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << program.readAll().toStdString();
  EXPECT_EQ(program.exitCode(), EXIT_FAILURE);
  display.waitForFinished();

  const QByteArray entries = Contents(log);
  EXPECT_EQ(entries.count("= whole\r\n\r\n"), Contents(SentIn(folder.path())).size());
  EXPECT_TRUE(entries.endsWith("= whole\r\n\r\n")) << entries.right(100).toStdString();
  const SystemClock clock;
  const ProgramOptions options = OptionsIn(folder.path());
  SqliteRegistry registry(options.machineFolder / kRegistryFile, options.userFolder / kRegistryFile,
                          clock);
  EXPECT_TRUE(Settings(registry).LoggingEnabled());
}

}  // namespace
}  // namespace sentrel
