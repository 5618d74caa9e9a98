#include <QFile>
#include <QTemporaryDir>

#include "common/failure.h"
#include "desktop/window/layout_file.h"
#include "window_fixture.h"

namespace sentrel {
namespace {

/// A window whose arrangement the user may have changed, and a second one that loads it.
struct WindowLayoutTest : WindowTest {
  QToolBar& Band(QMainWindow& of) { return *of.findChild<QToolBar*>("ToolBar"); }
  void Arrange() {
    Show();
    window.resize(613, 417);
    window.addToolBar(Qt::LeftToolBarArea, &Band(window));
    Band(window).hide();
  }

  QTemporaryDir folder;
  std::string path = folder.filePath("Sentrel.Toolbars").toStdString();
  Table nextTable;
  ToolBars nextTools;
  StatusBar nextStatus;
  TrapWindow next{nextTable, nextTools, nextStatus};
};

TEST_F(WindowLayoutTest, SizePositionAndVisibilityComeBack) {
  Arrange();
  tools.SaveLayout(path);
  nextTools.LoadLayout(path);
  next.show();
  EXPECT_EQ(next.size(), window.size());
  EXPECT_EQ(next.toolBarArea(&Band(next)), Qt::LeftToolBarArea);
  EXPECT_TRUE(Band(next).isHidden());
}

TEST_F(WindowLayoutTest, StatesOfToolsDoNotComeBack) {
  tools.Tools("Edit:Pause").SetState(1);
  tools.SaveLayout(path);
  nextTools.LoadLayout(path);
  EXPECT_EQ(nextTools.Tools("Edit:Pause").State(), 0);
  EXPECT_FALSE(next.findChild<QAction*>("Edit:Pause")->isChecked());
}

TEST_F(WindowLayoutTest, AWindowThatWasNeverShownKeepsWhatItLoaded) {
  Arrange();
  tools.SaveLayout(path);
  nextTools.LoadLayout(path);
  const QByteArray geometry = ReadLayout(QString::fromStdString(path)).window;
  nextTools.SaveLayout(path);
  EXPECT_EQ(ReadLayout(QString::fromStdString(path)).window, geometry);
}

TEST_F(WindowLayoutTest, AFirstStartThatFailsLeavesTheDesignForTheNext) {
  tools.SaveLayout(path);
  EXPECT_TRUE(ReadLayout(QString::fromStdString(path)).window.isEmpty());
  const QSize designed = next.size();
  nextTools.LoadLayout(path);
  EXPECT_EQ(next.size(), designed);
  EXPECT_FALSE(Band(next).isHidden());
  EXPECT_EQ(next.toolBarArea(&Band(next)), Qt::TopToolBarArea);
}

TEST_F(WindowLayoutTest, ADamagedFileChangesNothing) {
  Arrange();
  tools.SaveLayout(path);
  QFile file(QString::fromStdString(path));
  ASSERT_TRUE(file.open(QFile::ReadWrite));
  file.resize(file.size() - 2);
  const QSize designed = next.size();
  EXPECT_THROW(nextTools.LoadLayout(path), Failure);
  EXPECT_EQ(next.size(), designed);
  EXPECT_FALSE(Band(next).isHidden());
}

}  // namespace
}  // namespace sentrel
