#include "desktop/window/layout_file.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "common/failure.h"

namespace sentrel {
namespace {

struct LayoutFileTest : testing::Test {
  QByteArray Content() {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return file.readAll();
  }
  void SetContent(const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(content);
  }

  QTemporaryDir folder;
  QString path = folder.filePath("made/on/demand/Sentrel.Toolbars");
};

TEST_F(LayoutFileTest, GivesBackAnyBytesAndRefusesEveryDamage) {
  EXPECT_THROW(ReadLayout(path), Failure) << "no file";
  const WindowLayout layout{QByteArray("\0\n \xFF", 4), "bands"};
  WriteLayout(path, layout);
  const QByteArray sound = Content();
  EXPECT_EQ(ReadLayout(path).window, layout.window);
  EXPECT_EQ(ReadLayout(path).bands, layout.bands);
  for (qsizetype i = 0; i < sound.size(); ++i) {
    QByteArray flipped = sound;
    flipped[i] = static_cast<char>(flipped[i] ^ 1);
    SetContent(flipped);
    EXPECT_THROW(ReadLayout(path), Failure) << "byte " << i;
    SetContent(sound.left(i));
    EXPECT_THROW(ReadLayout(path), Failure) << "cut at " << i;
  }
  for (const QByteArray& other : {sound + "x", sound + sound, QByteArray(1 << 20, '\n')}) {
    SetContent(other);
    EXPECT_THROW(ReadLayout(path), Failure);
  }
}

TEST_F(LayoutFileTest, APlaceThatCannotBeWrittenIsAFailure) {
  WriteLayout(path, {"first", ""});
  QFile::setPermissions(path, QFile::ReadOwner);
  EXPECT_THROW(WriteLayout(path, {"second", ""}), Failure);
  EXPECT_EQ(ReadLayout(path).window, "first");
  EXPECT_THROW(WriteLayout("/proc/none/Sentrel.Toolbars", {}), Failure);
  EXPECT_THROW(ReadLayout(folder.path()), Failure) << "a folder";
}

}  // namespace
}  // namespace sentrel
