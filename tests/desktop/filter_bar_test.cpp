#include "desktop/filter/filter_bar.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QTest>
#include <QVBoxLayout>

#include "console/trap_row.h"
#include "fakes/fake_mib_library.h"

namespace sentrel {
namespace {

class WordRow : public TrapRow {
 public:
  explicit WordRow(const ArrivedTrap& trap) : TrapRow(trap) {}
  RowContent Make() const override {
    return {.cells = {std::string(Trap().Community())}, .data = "", .height = 20};
  }
};

struct FilterBarTest : testing::Test {
  FilterBarTest() {
    table.SetCols(1);
    table.SetWholeRows(true);
    table.SetColWidth(0, 300);
    for (const char* community : {"red", "green", "dark red"}) {
      table.AddItem(std::make_shared<WordRow>(ArrivedTrap(Trap{"10.1.2.3", community, {}, {}, {}})),
                    1);
    }
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(bar);
    layout->addWidget(view);
    window.resize(600, 400);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Slash);
  }
  void Type(const char* text) { QTest::keyClicks(box, text); }
  std::string Shown() const {
    std::string all;
    for (int row = 1; row < table.Rows(); ++row) all += table.Cell(row, 0) + " ";
    return all;
  }
  QString State() const { return bar->findChild<QLabel*>("FilterState")->text(); }
  int MarkedPixels() const {
    const QImage image = view->viewport()->grab().toImage();
    int marked = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor color = image.pixelColor(x, y);
        marked += color.blue() > color.red() + 40 ? 1 : 0;
      }
    }
    return marked;
  }

  FakeMibLibrary mibs;
  QWidget window;
  Table table;
  TableFilter filter{table, mibs};
  TableView* view = new TableView(table);
  FilterBar* bar = new FilterBar(table, filter, *view);
  QLineEdit* box = bar->findChild<QLineEdit*>("Filter");
};

TEST_F(FilterBarTest, FiltersAsOneTypesMarksHitsAndGivesAllBackByEscape) {
  EXPECT_TRUE(box->hasFocus()) << "a slash opens it";
  EXPECT_EQ(box->accessibleName(), "Filter");
  const int plain = MarkedPixels();
  Type("red");
  EXPECT_EQ(Shown(), "dark red red ");
  EXPECT_EQ(State(), "2 of 3");
  EXPECT_GT(MarkedPixels(), plain + 50);
  QTest::keyClick(box, Qt::Key_F3);
  EXPECT_EQ(table.Row(), 1);
  QTest::keyClick(box, Qt::Key_F3);
  EXPECT_EQ(table.Row(), 2);
  QTest::keyClick(box, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(table.Row(), 1);
  QTest::keyClick(box, Qt::Key_Return);
  QTest::keyClick(view, Qt::Key_Escape);
  EXPECT_EQ(Shown(), "dark red green red ");
  EXPECT_FALSE(bar->isVisible());
  EXPECT_TRUE(view->hasFocus());
  EXPECT_EQ(table.Row(), 1) << "what was stepped to stays selected";
}

TEST_F(FilterBarTest, TellsWhyAQueryIsNoneAndGoesOnWithTheLastGoodOne) {
  Type("green");
  const QColor page = box->palette().color(QPalette::Base);
  Type(" (");
  EXPECT_NE(box->palette().color(QPalette::Base), page);
  EXPECT_THAT(State().toStdString(), testing::HasSubstr("is missing here"));
  EXPECT_EQ(box->accessibleDescription(), State());
  EXPECT_EQ(Shown(), "green ");
  for (int i = 0; i < 2; ++i) QTest::keyClick(box, Qt::Key_Backspace);
  EXPECT_EQ(box->palette().color(QPalette::Base), page);
  EXPECT_EQ(State(), "1 of 3");
}

TEST_F(FilterBarTest, OffersHowAWordMayGoOn) {
  Type("-ver");
  QAbstractItemView* popup = bar->findChild<QCompleter*>()->popup();
  EXPECT_TRUE(popup->isVisible());
  QTest::keyClick(popup, Qt::Key_Down);
  QTest::keyClick(popup, Qt::Key_Return);
  EXPECT_EQ(box->text(), "-version:");
  Type("3");
  EXPECT_EQ(Shown(), "dark red green red ");
}

}  // namespace
}  // namespace sentrel
