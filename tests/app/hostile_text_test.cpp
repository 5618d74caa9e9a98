#include <QFile>
#include <QImage>
#include <QMessageBox>

#include "program_fixture.h"

namespace sentrel {
namespace {

struct HostileTextTest : ProgramFixture {
  void ShowText(const std::string& text, const std::string& community = "public") {
    const int rows = program.Traps().Rows();
    SendText(text, community);
    AwaitRows(rows + 1);
  }
  /// The row on the screen, but for the time of its arrival.
  QImage PictureOf(int row) {
    QRect place = View().CellRect(row, 1);
    place.setRight(View().viewport()->width());
    return View().viewport()->grab(place).toImage();
  }
};

TEST_F(HostileTextTest, NoTextReachesAnotherRow) {
  std::string above = "a";
  std::string below = "a";
  for (int i = 0; i < 60; ++i) {
    above += "\u0301";
    below += "\u0323";
  }
  const std::string texts[] = {above,
                               below,
                               above + "\r\n" + below,
                               "\u202E\u2067right to left",
                               "\x1b[2J\x07\x08\x0c\x0b",
                               "<table height=900><tr><td><h1>big</h1></table>",
                               std::string(60'000, 'W')};
  program.Window().resize(1200, 900);
  ShowText("plain");
  ShowText("plain");
  const QImage first = PictureOf(2);
  const QImage last = PictureOf(1);
  ASSERT_GT(last.height(), 10);
  for (const std::string& text : texts) {
    Choose("Edit:Clear");
    ShowText("plain");
    ShowText(text, text.substr(0, 101));
    ShowText("plain");
    EXPECT_EQ(PictureOf(1), last) << text.substr(0, 40);
    EXPECT_EQ(PictureOf(3), first) << text.substr(0, 40);
  }
}

/// Toolkits take texts that look like markup for markup, unless told.
TEST_F(HostileTextTest, TheNameOfAFileIsNoMarkup) {
  ShowText("saved");
  SelectRow1();
  const QString name = state.filePath("<b>bold<img src=x>\u00ADx.Trap");
  QFile file(name);
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.close();
  for (const bool readOnly : {false, true}) {
    if (readOnly) file.setPermissions(QFile::ReadOwner);
    user.NameFile(name);
    user.When("QMessageBox", [](QWidget& dialog) {
      auto& box = dynamic_cast<QMessageBox&>(dialog);
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_TRUE(box.text().contains("<b>bold<img src=x><U+00AD>x.Trap"))
          << box.text().toStdString();
      box.reject();
    });
    user.Escape("QFileDialog");
    Choose("Edit:SaveTrap");
  }
}

}  // namespace
}  // namespace sentrel
