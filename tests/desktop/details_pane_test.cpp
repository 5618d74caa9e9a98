#include "desktop/details/details_pane.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QTest>

#include "console/trap_row.h"
#include "controls/status_bar.h"
#include "encoded_message.h"
#include "fakes/fake_mib_library.h"
#include "fakes/fake_registry.h"

namespace sentrel {
namespace {

using test::Tagged;

class NoFacts : public MibFacts {
 public:
  ObjectFacts FactsOf(std::span<const std::uint32_t>) const override { return {}; }
};

class Row : public TrapRow {
 public:
  using TrapRow::TrapRow;
  RowContent Make() const override {
    return {.cells = {std::string(Trap().Community())}, .data = "", .height = 20};
  }
};

struct DetailsPaneTest : testing::Test {
  DetailsPaneTest() {
    table.SetCols(1);
    table.SetWholeRows(true);
  }
  /// A message whose only binding has this value.
  void AddTrap(const std::string& community, const std::string& value) {
    const std::string binding = Tagged(0x30, Tagged(6, "\x2b\5") + Tagged(4, value));
    const std::string message = test::Message(1, test::Pdu(0xA7, binding), community);
    ArrivedTrap trap;
    trap.Assign({.sourceAddress = "192.0.2.7", .community = community, .message = message});
    table.AddItem(std::make_shared<Row>(trap), 1);
  }
  void Open() {
    pane.Start();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.View().setFocus();
  }
  QTreeView* Tree() { return window.findChild<QTreeView*>("TrapDetails"); }
  ByteView* Bytes() { return window.findChild<ByteView*>("Bytes"); }
  bool IsShown() { return Tree() != nullptr && Tree()->isVisible(); }
  void Press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(widget, static_cast<Qt::Key>(key), modifiers);
    QApplication::processEvents();
  }
  void Switch(bool shown) {
    Press(&window, Qt::Key_D, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return IsShown() == shown; }));
  }
  /// The texts of a column.
  QStringList Column(int column) {
    QStringList texts;
    const auto* model = Tree()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
      texts << model->index(row, column).data().toString();
    }
    return texts;
  }
  QString Value(const QString& name) { return Column(3).value(Column(0).indexOf(name)); }
  void GoTo(const QString& name) {
    Press(Tree(), Qt::Key_Home);
    for (auto i = Column(0).indexOf(name); i > 0; --i) Press(Tree(), Qt::Key_Down);
  }

  Table table;
  ToolBars toolBars;
  StatusBar status;
  FakeRegistry registry;
  FakeMibLibrary names;
  NoFacts facts;
  TrapWindow window{table, toolBars, status};
  DetailsPane pane{window, table, names, facts, registry};
};

TEST_F(DetailsPaneTest, OpensOnTheRowAndFollowsTheSelection) {
  AddTrap("first", "one");
  AddTrap("second", "two");
  table.SetRow(1);
  Open();
  EXPECT_EQ(Tree(), nullptr) << "nothing is made before it is asked for";
  Press(&window.View(), Qt::Key_Return);
  ASSERT_TRUE(IsShown());
  EXPECT_EQ(Tree()->accessibleName(), "Trap details");
  EXPECT_EQ(Bytes()->accessibleName(), "Bytes");
  EXPECT_EQ(Tree()->model()->headerData(3, Qt::Horizontal).toString(), "Value");
  EXPECT_EQ(Value("Community"), "second");
  EXPECT_TRUE(Tree()->hasFocus());
  Press(Tree(), Qt::Key_Escape);
  EXPECT_TRUE(window.View().hasFocus());
  Press(&window.View(), Qt::Key_Down);
  EXPECT_EQ(Value("Community"), "first");
  table.RemoveItem(2);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Value("Community") == "second"; }));
  table.SetRows(1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Column(0).isEmpty(); }));
}

TEST_F(DetailsPaneTest, StaysOnTheTrapWhileOthersArrive) {
  AddTrap("chosen", "x");
  table.SetRow(1);
  Open();
  Switch(true);
  GoTo("1.3.5");
  const QModelIndex current = Tree()->currentIndex();
  const QPersistentModelIndex same(current);
  for (int i = 0; i < 50; ++i) {
    AddTrap("other", "y");
    table.SetRow(table.Row() + 1);
    QApplication::processEvents();
  }
  EXPECT_TRUE(same.isValid()) << "the tree was not made anew";
  EXPECT_EQ(Value("Community"), "chosen");
}

TEST_F(DetailsPaneTest, LinesAndBytesChooseEachOther) {
  AddTrap("public", "needle");
  table.SetRow(1);
  Open();
  Press(&window.View(), Qt::Key_Return);
  GoTo("1.3.5");
  const std::string message(TrapOf(table, 1)->Message());
  EXPECT_EQ(Bytes()->Marked().end, message.size());
  EXPECT_EQ(Bytes()->extraSelections().size(), 4) << "two lines of digits and characters";
  QTest::mouseClick(Bytes()->viewport(), Qt::LeftButton, {},
                    Bytes()->PlaceOf(message.find("public")));
  EXPECT_EQ(Tree()->currentIndex().siblingAtColumn(0).data(), "Community");
  EXPECT_EQ(Bytes()->Marked().Size(), 8U);
}

TEST_F(DetailsPaneTest, CopiesALineAndTheWhole) {
  AddTrap("public", std::string(2000, 'n'));
  table.SetRow(1);
  Open();
  Press(&window.View(), Qt::Key_Return);
  GoTo("1.3.5");
  const auto copied = [] { return QApplication::clipboard()->text(); };
  Press(Tree(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copied(), QString(2000, 'n')) << "whole, although the tree cuts it";
  const auto choose = [&](int key) {
    Press(Tree(), Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    Press(menu, key);
  };
  choose(Qt::Key_O);
  EXPECT_EQ(copied(), "1.3.5");
  choose(Qt::Key_T);
  EXPECT_TRUE(copied().contains("\nCommunity: public\n"));
  EXPECT_EQ(Tree()->findChild<QAction*>("CopyText")->text(),
            "Copy All as &Text (with the community)");
  choose(Qt::Key_J);
  EXPECT_TRUE(copied().startsWith("{"));
}

TEST_F(DetailsPaneTest, IsWhereItWasLeft) {
  AddTrap("public", "x");
  Open();
  Switch(true);
  Tree()->findChild<QAction*>("ShowRight")->trigger();
  Switch(false);
  Switch(true);
  TrapWindow next(table, toolBars, status);
  DetailsPane nextPane(next, table, names, facts, registry);
  nextPane.Start();
  next.show();
  ASSERT_NE(next.findChild<QTreeView*>("TrapDetails"), nullptr);
  EXPECT_EQ(next.findChild<QSplitter*>("Panes")->orientation(), Qt::Horizontal);
}

TEST_F(DetailsPaneTest, ALargeMessageIsShownInSlices) {
  std::string bindings;
  for (int i = 0; i < 3000; ++i) bindings += Tagged(0x30, Tagged(6, "\x2b\5") + Tagged(5, ""));
  const std::string message = test::Message(1, test::Pdu(0xA7, bindings));
  ArrivedTrap trap;
  trap.Assign({.sourceAddress = "192.0.2.7", .community = "public", .message = message});
  table.AddItem(std::make_shared<Row>(trap), 1);
  table.SetRow(1);
  Open();
  Press(&window.View(), Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Tree()->model()->rowCount() > 3000; }));
  Press(Bytes(), Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Tree()->currentIndex().row(), Tree()->model()->rowCount() - 1);
}

}  // namespace
}  // namespace sentrel
