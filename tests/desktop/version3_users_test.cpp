#include <gmock/gmock.h>

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include "desktop/forms/settings_dialog.h"
#include "dialogs.h"
#include "fakes/fake_console.h"
#include "fakes/fake_file_dialog.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_version3_users.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr int kUsersTab = 4;
const QString kSecret = "s3cr3t-passphrase";

/// All that assistive technology, or anyone who looks, can read in the window.
QString TextsOf(const QWidget& window) {
  QString texts;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    auto* reader = QAccessible::queryAccessibleInterface(widget);
    for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value})
      texts += reader->text(kind) + '\n';
    if (auto* text = reader->textInterface()) texts += text->text(0, text->characterCount());
    if (auto* box = qobject_cast<QLineEdit*>(widget)) texts += box->displayText();
    texts += widget->toolTip();
  }
  return texts;
}

/// The page of the version 3 users, used with mouse and keyboard.
struct Version3UsersTest : testing::Test {
  void Open() {
    dialog = std::make_unique<SettingsDialog>(settings, box, files, logFile, users, nullptr);
    dialog->open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    QTabBar* bar = Tabs().tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(kUsersTab).center());
    ASSERT_EQ(Tabs().currentIndex(), kUsersTab);
  }
  QTabWidget& Tabs() { return *dialog->findChild<QTabWidget*>("Tabs"); }
  QTableWidget& Table() { return *dialog->findChild<QTableWidget*>("Version3Users"); }
  QPushButton& Button(const char* name) { return *dialog->findChild<QPushButton*>(name); }
  void Click(const char* button) { QTest::mouseClick(&Button(button), Qt::LeftButton); }
  void ClickRow(int row) {
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {},
                      Table().visualItemRect(Table().item(row, 0)).center());
  }
  QStringList Row(int row) {
    QStringList cells;
    for (int column = 0; column < Table().columnCount(); ++column)
      cells << Table().item(row, column)->text();
    return cells;
  }
  static void Type(QWidget& form, const char* name, const QString& text) {
    auto* edit = form.findChild<QLineEdit*>(name);
    edit->setFocus();
    QTest::keyClicks(edit, text);
  }

  FakeRegistry registry;
  Settings settings{registry};
  CallLog log;
  FakeMessageBox box{log};
  FakeFileDialog files;
  FakeLogFile logFile;
  FakeVersion3Users users;
  User user;
  std::unique_ptr<SettingsDialog> dialog;
};

TEST_F(Version3UsersTest, AUserIsEnteredByKeyboardAndNoPassphraseCanBeRead) {
  Open();
  EXPECT_EQ(Table().accessibleName(), "Version 3 users");
  user.When("Version3UserForm", [](QWidget& form) {
    auto* problem = form.findChild<QLabel*>("Problem");
    Type(form, "UserName", "alice");
    QTest::keyClick(form.findChild<QComboBox*>("Authentication"), Qt::Key_Up);
    Type(form, "AuthPassphrase", kSecret);
    Type(form, "PrivPassphrase", kSecret.left(7));
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible() && problem->isVisible());
    EXPECT_THAT(problem->text().toStdString(), StartsWith("The privacy passphrase"));
    EXPECT_FALSE(form.findChild<QLabel*>("KeyFormHint")->text().isEmpty());
    Type(form, "PrivPassphrase", kSecret.mid(7));
    EXPECT_FALSE(TextsOf(form).contains(kSecret.left(7)));
    QTest::keyClick(&form, Qt::Key_Return);
  });
  Click("cmdAddUser");
  EXPECT_THAT(Row(0),
              ElementsAre("alice", "authPriv", "SHA-224", "AES-256", "any", "not yet", "here"));
  user.When("Version3UserForm", [](QWidget& form) {
    EXPECT_EQ(form.findChild<QLineEdit*>("AuthPassphrase")->text(), "");
    EXPECT_FALSE(TextsOf(form).contains(kSecret));
    QTest::keyClick(&form, Qt::Key_Escape);
  });
  Click("cmdChangeUser");
  EXPECT_FALSE(TextsOf(*dialog).contains(kSecret));
  EXPECT_EQ(users.replacements, 0);
  Click("cmdOK");
  EXPECT_FALSE(dialog->isVisible());
  ASSERT_EQ(users.replaced.size(), 1);
  EXPECT_EQ(users.replaced[0].authPassphrase, kSecret.toStdString());
  EXPECT_EQ(users.replaced[0].privPassphrase, kSecret.toStdString());
}

TEST_F(Version3UsersTest, LinesArePastedAndRowsRemovedByKeyboard) {
  Open();
  QGuiApplication::clipboard()->setText("snmpv3 user bob auth md5 " + kSecret +
                                        "\ncreateUser carol SHA password\n");
  Table().setFocus();
  QTest::keySequence(&Table(), QKeySequence::Paste);
  ASSERT_EQ(Table().rowCount(), 2);
  EXPECT_FALSE(TextsOf(*dialog).contains(kSecret));
  ClickRow(0);
  EXPECT_TRUE(Button("cmdRemoveUser").isEnabled());
  QTest::keyClick(&Table(), Qt::Key_Delete);
  ASSERT_EQ(Table().rowCount(), 1);
  EXPECT_EQ(Row(0).first(), "carol");
  EXPECT_FALSE(Button("cmdRemoveUser").isEnabled());
  EXPECT_TRUE(Table().hasFocus());
  QGuiApplication::clipboard()->clear();
  Click("cmdPasteUsers");
  EXPECT_THAT(box.text, StartsWith("The clipboard holds no line"));
  users.unwritable = "The disk is full.";
  Tabs().setCurrentIndex(0);
  Click("cmdOK");
  EXPECT_EQ(box.text, "The disk is full.");
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(Tabs().currentIndex(), kUsersTab);
}

TEST_F(Version3UsersTest, AUserOfAFileIsShownWithItsTimeAndCannotBeChanged) {
  Version3User carol;
  carol.name = "carol";
  carol.engine = std::string("\x80\x00\x00\x01\x02", 5);
  carol.lastHeard = std::chrono::system_clock::from_time_t(1796482177);  // 2026-12-05 14:49:37 UTC
  carol.isFromFile = true;
  users.users = {carol};
  Open();
  EXPECT_TRUE(Row(0)[5].contains("2026")) << Row(0)[5].toStdString();
  ClickRow(0);
  EXPECT_FALSE(Button("cmdChangeUser").isEnabled() || Button("cmdRemoveUser").isEnabled());
  EXPECT_TRUE(dialog->findChild<QLabel*>("Version3UsersNote")->text().contains("sentrel.conf"));
  user.When("ForgetEngineForm", [](QWidget& form) {
    auto* engine = form.findChild<QLineEdit*>("ForgottenEngine");
    EXPECT_EQ(engine->text(), "0x8000000102");
    QTest::keyClicks(engine, "x");
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible()) << "that is no engine ID";
    QTest::keyClick(engine, Qt::Key_Backspace);
    QTest::keyClick(&form, Qt::Key_Return);
  });
  Click("cmdForgetEngine");
  Click("cmdOK");
  EXPECT_THAT(users.forgotten, ElementsAre(carol.engine));
  EXPECT_EQ(users.replacements, 0);
}

}  // namespace
}  // namespace sentrel
