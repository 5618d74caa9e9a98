#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>

#include "app/program.h"
#include "fakes/free_port.h"

namespace sentrel {

/// The program as a user has it, but that it listens and sends on a port of its own and keeps what
/// it keeps in a folder that goes with the test.
struct ProgramFixture : testing::Test {
  ProgramFixture() {
    EXPECT_TRUE(program.Start());
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&program.Window()));
  }
  std::string Peer() const { return "127.0.0.1:" + std::to_string(port); }
  QAction& Tool(const char* id) { return *program.Window().findChild<QAction*>(id); }
  TableView& View() { return *program.Window().findChild<TableView*>("Table"); }

  void AwaitRows(int rows) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Traps().Rows() == rows; }, 10'000));
  }
  /// Chooses a tool and answers the dialog that it opens.
  void Choose(const char* tool, const std::function<void(QWidget&)>& answer) {
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog == nullptr || !dialog->isVisible()) return;
      user.stop();
      answer(*dialog);
      if (dialog->isVisible()) dialog->close();
    });
    user.start(0);
    Tool(tool).trigger();
    EXPECT_FALSE(user.isActive()) << "no dialog came";
  }

  QTemporaryDir state;
  std::uint16_t port = FreePort();
  Program program{{.port = port,
                   .sendPort = port,
                   .machineFolder = state.filePath("machine").toStdString(),
                   .userFolder = state.filePath("user").toStdString()}};
};

}  // namespace sentrel
