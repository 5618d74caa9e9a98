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

TEST_F(WindowLayoutTest, SizePositionAndVisibilityComeBackButNoStateOfATool) {
  Arrange();
  tools.Tools("Edit:Pause").SetState(1);
  tools.SaveLayout(path);
  nextTools.LoadLayout(path);
  const QByteArray saved = ReadLayout(QString::fromStdString(path)).window;
  nextTools.SaveLayout(path);
  EXPECT_EQ(ReadLayout(QString::fromStdString(path)).window, saved) << "though it was never shown";
  next.show();
  EXPECT_EQ(next.size(), window.size());
  EXPECT_EQ(next.toolBarArea(&Band(next)), Qt::LeftToolBarArea);
  EXPECT_TRUE(Band(next).isHidden());
  EXPECT_FALSE(next.findChild<QAction*>("Edit:Pause")->isChecked());
}

TEST_F(WindowLayoutTest, AnEmptyOrDamagedFileLeavesTheDesign) {
  tools.SaveLayout(path);
  EXPECT_TRUE(ReadLayout(QString::fromStdString(path)).window.isEmpty()) << "was never shown";
  const QSize designed = next.size();
  nextTools.LoadLayout(path);
  Arrange();
  tools.SaveLayout(path);
  QFile file(QString::fromStdString(path));
  ASSERT_TRUE(file.resize(file.size() - 2));
  EXPECT_THROW(nextTools.LoadLayout(path), Failure);
  EXPECT_EQ(next.size(), designed);
  EXPECT_FALSE(Band(next).isHidden());
  EXPECT_EQ(next.toolBarArea(&Band(next)), Qt::TopToolBarArea);
}

}  // namespace
}  // namespace sentrel
