#include <gmock/gmock.h>

#include <QAccessible>
#include <QCheckBox>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "desktop/forms/settings_dialog.h"
#include "fakes/fake_console.h"
#include "fakes/fake_file_dialog.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_version3_users.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kGeneral = 0;
constexpr int kDeviceFilter = 1;
constexpr int kCommunityFilter = 2;
constexpr int kLogging = 3;

/// The settings dialog on the screen, used with mouse and keyboard.
struct SettingsDialogTest : testing::Test {
  void Open(int tab) {
    dialog = std::make_unique<SettingsDialog>(settings, box, files, logFile, users, nullptr);
    dialog->open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    EXPECT_EQ(Tabs().currentIndex(), kGeneral);
    QTest::mouseClick(Tabs().tabBar(), Qt::LeftButton, {}, Tabs().tabBar()->tabRect(tab).center());
    EXPECT_EQ(Tabs().currentIndex(), tab);
  }
  template <typename Widget = QWidget>
  Widget& Find(const char* name) {
    return *dialog->findChild<Widget*>(name);
  }
  QTabWidget& Tabs() { return Find<QTabWidget>("Tabs"); }
  QListWidget& List(const char* name) { return Find<QListWidget>(name); }

  /// A click where the widget can be clicked at its left end.
  void Click(const char* name) {
    QWidget& widget = Find(name);
    ASSERT_TRUE(widget.isVisible()) << name;
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2));
  }
  void ClickLine(const char* list, int row) {
    QListWidget& lines = List(list);
    QTest::mouseClick(lines.viewport(), Qt::LeftButton, {},
                      lines.visualItemRect(lines.item(row)).center());
  }
  void Type(const char* text, Qt::Key end) {
    QTest::keyClicks(QApplication::focusWidget(), text);
    QTest::keyClick(QApplication::focusWidget(), end);
  }
  QStringList Lines(const char* list) {
    QStringList lines;
    for (int row = 0; row < List(list).count(); ++row) lines << List(list).item(row)->text();
    return lines;
  }
  bool HasFocus(const char* name) { return QApplication::focusWidget() == &Find(name); }

  FakeRegistry registry;
  Settings settings{registry};
  CallLog log;
  FakeMessageBox box{log};
  FakeFileDialog files;
  FakeLogFile logFile;
  FakeVersion3Users users;
  std::unique_ptr<SettingsDialog> dialog;
};

TEST_F(SettingsDialogTest, HasItsPagesAndCaptions) {
  Open(kGeneral);
  EXPECT_EQ(dialog->windowTitle(), "Sentrel Settings ...");
  EXPECT_EQ(dialog->property("helpContext"), 9100);
  const std::tuple<const char*, const char*, const char*> pages[] = {
      {"General", "SSActiveTabPanel1", "SettingsGeneral"},
      {"Device Filter", "SSActiveTabPanel2", "SettingsDeviceFilter"},
      {"Community Filter", "SSActiveTabPanel4", "SettingsCommunityFilter"},
      {"Logging", "SSActiveTabPanel3", "SettingsLogging"},
      {"Version 3 Users", "Version3UsersPage", "SettingsVersion3Users"}};
  ASSERT_EQ(Tabs().count(), 5);
  for (int tab = 0; tab < Tabs().count(); ++tab) {
    const auto& [caption, name, helpTopic] = pages[tab];
    EXPECT_EQ(Tabs().tabText(tab), caption);
    EXPECT_EQ(Tabs().widget(tab)->objectName(), name);
    Tabs().setCurrentIndex(tab);
    EXPECT_EQ(dialog->property("helpTopic"), helpTopic);
  }
  EXPECT_TRUE(QFontInfo(List("DeviceFilterList").font()).fixedPitch());
  const std::pair<const char*, const char*> captions[] = {
      {"checkDecode", "Decode Trap OIDs"},
      {"checkRaw", "Display raw data, do not decode Trap OIDs"},
      {"checkDeviceFilter",
       "Enable Device Filtering (Only receive SNMP Traps from specific devices)"},
      {"AddLabel", "Add New IP Address, Subnet, or Address Range"},
      {"cmdAddDeviceFilter", "Add "},
      {"ExamplesLabel", "Examples:"},
      {"ExampleList", "10.0.1.23\n10.0.1.1 - 10.0.1.255\n10.0.1.0/24\n10.0.1.0/255.255.255.0"},
      {"ExampleNames", "Single IP Address\nIP Address Range\nSubnet\nSubnet"},
      {"cmdDeleteDeviceFilter", "Remove Selected Filter"},
      {"checkCommunity", "Enable SNMP Community Filtering"},
      {"Label1", "Only accept SNMP Traps with certain Community strings"},
      {"NewCommunityLabel", "New SNMP Community String"},
      {"cmdAddCommunity", "Add "},
      {"cmdDeleteCommunity", "Remove Selected Filter"},
      {"checkLoggingActive", "Log Traps to a file as they arrive"},
      {"LogLabel", "Logging File"},
      {"cmdSelectLogFile", "..."},
      {"cmdOK", "OK"},
      {"cmdCancel", "Cancel"},
  };
  for (const auto& [name, caption] : captions)
    EXPECT_EQ(Find(name).property("text").toString(), caption) << name;
  EXPECT_EQ(Find("Frame1").property("title").toString(), "Trap Decoding");
}

TEST_F(SettingsDialogTest, EveryWidgetThatTakesTheFocusTellsItsNameToAScreenReader) {
  Open(kGeneral);
  int told = 0;
  for (QWidget* widget : dialog->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().isEmpty() ||
        widget->objectName().startsWith("qt_"))
      continue;
    ++told;
    const auto* reader = QAccessible::queryAccessibleInterface(widget);
    EXPECT_FALSE(reader->text(QAccessible::Name).trimmed().isEmpty())
        << widget->objectName().toStdString();
  }
  EXPECT_GE(told, 28);
}

TEST_F(SettingsDialogTest, TheTwoWaysOfDecodingExcludeEachOther) {
  Open(kGeneral);
  EXPECT_TRUE(HasFocus("checkDecode"));
  Click("checkRaw");
  EXPECT_FALSE(Find<QAbstractButton>("checkDecode").isChecked());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  EXPECT_FALSE(Find<QAbstractButton>("checkRaw").isChecked());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  Click("cmdOK");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(settings.Raw());
  Open(kGeneral);
  EXPECT_TRUE(HasFocus("checkRaw"));
}

TEST_F(SettingsDialogTest, EachCheckBoxShowsItsControlsAndHidesThem) {
  struct Group {
    int tab;
    const char* check;
    std::vector<const char*> controls;
  };
  const Group groups[] = {
      {kDeviceFilter,
       "checkDeviceFilter",
       {"AddLabel", "NewDeviceFilter", "cmdAddDeviceFilter", "ExamplesLabel", "ExampleList",
        "ExampleNames", "DeviceFilterList", "cmdDeleteDeviceFilter", "Ipv6DeviceFilterList",
        "NewIpv6DeviceFilter", "cmdAddIpv6DeviceFilter", "cmdDeleteIpv6DeviceFilter", "Ipv6Note"}},
      {kCommunityFilter,
       "checkCommunity",
       {"NewCommunity", "NewCommunityLabel", "cmdAddCommunity", "CommunityList",
        "cmdDeleteCommunity"}},
      {kLogging,
       "checkLoggingActive",
       {"LogLabel", "LogFilename", "cmdSelectLogFile", "LogProblem"}}};
  for (const auto& [tab, check, controls] : groups) {
    Open(tab);
    const QSize size = dialog->size();
    for (const bool shown : {false, true, false}) {
      for (const char* control : controls) EXPECT_EQ(Find(control).isVisible(), shown) << control;
      QApplication::processEvents();
      EXPECT_EQ(dialog->size(), size);
      Click(check);
    }
    EXPECT_TRUE(Find(tab == kCommunityFilter ? "Label1" : check).isVisible());
  }
}

TEST_F(SettingsDialogTest, DeviceFiltersAreEnteredByKeyboardAlone) {
  Open(kDeviceFilter);
  Click("checkDeviceFilter");
  EXPECT_TRUE(HasFocus("NewDeviceFilter"));
  Type("10.0.1.0/24", Qt::Key_Return);
  Type("10.0.1.300", Qt::Key_Enter);
  EXPECT_EQ(box.text, "Please enter a valid Filter first.");
  EXPECT_EQ(Find<QLineEdit>("NewDeviceFilter").text(), "10.0.1.300");
  EXPECT_TRUE(dialog->isVisible());
  Find<QLineEdit>("NewDeviceFilter").selectAll();
  Type("10.0.1.23", Qt::Key_Enter);
  EXPECT_EQ(Find<QLineEdit>("NewDeviceFilter").selectedText(), "10.0.1.23");
  EXPECT_THAT(Lines("DeviceFilterList"), ElementsAre("Subnet            : 10.0.1.0/255.255.255.0",
                                                     "Single IP Address : 10.0.1.23"));
  EXPECT_FALSE(settings.DeviceFilters()->AddressInFilters("10.0.1.23"));
  Click("cmdOK");
  EXPECT_TRUE(settings.DeviceFilterActive());
  EXPECT_EQ(Settings(registry).DeviceFilters()->Count(), 2);
}

TEST_F(SettingsDialogTest, Ipv6FiltersAreEnteredByKeyboardToo) {
  settings.SetDeviceFilterActive(true);
  settings.DeviceFilters()->AddFilter("10.0.0.1");
  Open(kDeviceFilter);
  Click("NewIpv6DeviceFilter");
  Type("10.0.0.1", Qt::Key_Return);
  EXPECT_THAT(box.text, testing::StartsWith("This is an IPv4 Filter"));
  Find<QLineEdit>("NewIpv6DeviceFilter").selectAll();
  Type("2001:DB8::/32", Qt::Key_Enter);
  EXPECT_EQ(Find<QLineEdit>("NewIpv6DeviceFilter").selectedText(), "2001:DB8::/32");
  Type("fe80::1", Qt::Key_Tab);
  Click("cmdAddIpv6DeviceFilter");
  EXPECT_THAT(Lines("Ipv6DeviceFilterList"), ElementsAre("2001:db8::/32", "fe80::1"));
  Find("NewDeviceFilter").setFocus();
  for (const char* next : {"cmdAddDeviceFilter", "DeviceFilterList", "NewIpv6DeviceFilter",
                           "cmdAddIpv6DeviceFilter", "Ipv6DeviceFilterList"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(next)) << next;
  }
  Click("cmdOK");
  EXPECT_TRUE(Settings(registry).AcceptsDevice("2001:db8::1"));
}

TEST_F(SettingsDialogTest, AddButtonsGiveTheFocusBackToTheirBox) {
  Open(kCommunityFilter);
  Click("checkCommunity");
  Click("NewCommunity");
  Type("  two words ", Qt::Key_Tab);
  EXPECT_TRUE(HasFocus("cmdAddCommunity"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(HasFocus("NewCommunity"));
  EXPECT_EQ(Find<QLineEdit>("NewCommunity").selectedText(), "two words");
  Type("", Qt::Key_Delete);
  Click("cmdAddCommunity");
  EXPECT_EQ(box.text, "Please enter an SNMP Community string first.");
  EXPECT_THAT(Lines("CommunityList"), ElementsAre("public", "two words"));
}

TEST_F(SettingsDialogTest, LinesAreRemovedByButtonAndByDeleteKey) {
  const std::pair<const char*, const char*> lists[] = {
      {"DeviceFilterList", "cmdDeleteDeviceFilter"},
      {"Ipv6DeviceFilterList", "cmdDeleteIpv6DeviceFilter"},
      {"CommunityList", "cmdDeleteCommunity"}};
  settings.SetDeviceFilterActive(true);
  for (const char* text : {"10.0.0.1", "10.0.0.2", "10.0.0.3"}) {
    settings.DeviceFilters()->AddFilter(text);
    settings.Ipv6DeviceFilters()->AddFilter("2001:db8::" + std::string(text));
    settings.CommunityStrings()->Add(text);
  }
  for (const auto& [list, button] : lists) {
    Open(list == lists[2].first ? kCommunityFilter : kDeviceFilter);
    List(list).setFocus();
    EXPECT_FALSE(Find(button).isEnabled());
    QTest::keyClick(&List(list), Qt::Key_Delete);
    EXPECT_EQ(List(list).count(), 3) << "no line was selected";

    ClickLine(list, 0);
    EXPECT_TRUE(Find(button).isEnabled());
    Click(button);
    EXPECT_EQ(List(list).count(), 2);
    EXPECT_FALSE(Find(button).isEnabled());
    EXPECT_THAT(List(list).selectedItems(), IsEmpty());
    EXPECT_TRUE(HasFocus(list)) << "not on a button that closes the dialog";

    QTest::keyClick(&List(list), Qt::Key_Down);
    EXPECT_TRUE(Find(button).isEnabled()) << "a line can be selected with the keyboard";
    QTest::keyClick(&List(list), Qt::Key_Delete);
    EXPECT_EQ(Lines(list).size(), 1);
    EXPECT_TRUE(Lines(list).front().endsWith(list == lists[1].first ? "a00:2" : "10.0.0.2"));
    EXPECT_FALSE(Find(button).isEnabled());
  }
}

TEST_F(SettingsDialogTest, ItsOtherWaysOutChangeNothing) {
  settings.CommunityStrings()->Add("private");
  const std::function<void()> waysOut[] = {
      [this] { Click("cmdCancel"); }, [this] { dialog->close(); },
      [this] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }};
  for (const auto& leave : waysOut) {
    Open(kGeneral);
    Click("checkRaw");
    for (const char* name : {"checkRaw", "cmdCancel", "cmdOK"}) {
      Find(name).setFocus();
      QTest::keyClick(&Find(name), Qt::Key_Return);
      ASSERT_TRUE(dialog->isVisible()) << "there is no default button";
    }
    Tabs().setCurrentIndex(kCommunityFilter);
    Click("checkCommunity");
    leave();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(settings.Raw());
    EXPECT_THAT(settings.CommunityStrings()->CStrings(), ElementsAre("private"));
    EXPECT_EQ(registry.changes, 0);
  }
}

TEST_F(SettingsDialogTest, AFolderForTheLogIsToldOfWhereItWasTyped) {
  settings.SetLoggingEnabled(true);
  logFile.obstacles = {{"/home/ann", "This is a folder."}};
  const auto problem = [&] { return Find<QLabel>("LogProblem").text(); };
  Open(kLogging);
  Click("LogFilename");
  QTest::keyClicks(&Find("LogFilename"), "~");
  EXPECT_EQ(problem(), "") << "not at every key";
  EXPECT_TRUE(QTest::qWaitFor([&] { return problem() == "This is a folder."; }));
  QTest::keyClick(&Find("LogFilename"), Qt::Key_Return);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(Find<QLineEdit>("LogFilename").text(), "/home/ann");
  files.choice = "/tmp/b";
  Click("cmdSelectLogFile");
  Click("cmdOK");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(Settings(registry).LogFilename(), "/tmp/b");
}

TEST_F(SettingsDialogTest, TheListsTakeTheRoomOfALargerWindow) {
  settings.SetDeviceFilterActive(true);
  Open(kDeviceFilter);
  const auto height = [this] {
    return List("DeviceFilterList").height() + List("Ipv6DeviceFilterList").height();
  };
  const int before = height();
  dialog->resize(dialog->width(), dialog->height() + 100);
  ASSERT_TRUE(QTest::qWaitFor([&] { return height() == before + 100; }));
  EXPECT_GE(
      Find("NewDeviceFilter").width(),
      Find("NewDeviceFilter").fontMetrics().horizontalAdvance("10.100.100.100-10.100.100.255"));
}

}  // namespace
}  // namespace sentrel
