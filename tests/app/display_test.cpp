#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTimer>

#include "program_fixture.h"

namespace sentrel {
namespace {

constexpr const char* kFolder = "SENTREL_TEST_FOLDER";

QByteArray Contents(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// Run by the test below, in a process and on a display of its own.
TEST(DISABLED_OnADisplay, TheProgramLogsTraps) {
  const QDir folder(qEnvironmentVariable(kFolder));
  const std::uint16_t port = test::FreePort();
  Program program(OptionsIn(folder.path().toStdString(), port));
  ASSERT_TRUE(program.Start());
  LogTo(folder.filePath("traps.log").toStdString(), program);
  // Told of only when they are on the way.
  QFile sent(folder.filePath("sent"));
  ASSERT_TRUE(sent.open(QFile::WriteOnly | QFile::Unbuffered));
  QTimer storm;
  QObject::connect(&storm, &QTimer::timeout, [&] {
    SendText(port, "whole");
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
  const QString log = folder.filePath("traps.log");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Contents(log).count("whole") >= 100; }, 60'000))
      << program.readAll().toStdString();
  display.kill();
  ASSERT_TRUE(QTest::qWaitFor([&] { return program.state() == QProcess::NotRunning; }, 20'000));
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << program.readAll().toStdString();
  EXPECT_EQ(program.exitCode(), EXIT_FAILURE);
  display.waitForFinished();

  const QByteArray entries = Contents(log);
  EXPECT_EQ(entries.count("= whole\r\n\r\n"), Contents(folder.filePath("sent")).size());
  EXPECT_TRUE(entries.endsWith("= whole\r\n\r\n")) << entries.right(100).toStdString();
  EXPECT_TRUE(Stored(folder.path().toStdString()).settings.LoggingEnabled());
}

}  // namespace
}  // namespace sentrel
