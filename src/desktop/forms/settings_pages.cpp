#include "desktop/forms/settings_pages.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "settings/settings_view.h"

namespace sentrel {

using namespace settings_controls;

namespace {

constexpr int kPageMargin = 12;
constexpr int kGroupSpacing = 6;
constexpr int kColumnSpacing = 12;
/// Of each of two lists that share a page. A larger window gives them more.
constexpr int kLinesOfList = 6;
/// So that nothing moves when the note comes and goes.
constexpr int kLinesOfNote = 2;

/// Courier itself or the system's own: what systems put in the place of a Courier that they lack is
/// hard to read on a screen.
QFont Monospaced() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(QFont().pointSizeF());
  if (QFontDatabase::families().contains("Courier")) font.setFamily("Courier");
  return font;
}

template <typename Widget>
Widget* Named(Widget* widget, SettingsControl control) {
  widget->setObjectName(control.name);
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
  return widget;
}

QLabel* Label(SettingsText control, const QString& text = {}) {
  auto* label = Named(new QLabel(text), control);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QPushButton* Button(SettingsButton control, const QString& caption) {
  auto* button = Named(new QPushButton(caption), control);
  button->setAutoDefault(false);
  return button;
}

QLineEdit* EntryBox(SettingsText control, QLabel* label) {
  auto* box = Named(new QLineEdit, control);
  label->setBuddy(box);
  return box;
}

QListWidget* List(SettingsList control, const QString& accessibleName) {
  auto* list = Named(new QListWidget, control);
  // The style's own frame loses lines at scales between whole numbers.
  list->setFrameStyle(QFrame::Box | QFrame::Plain);
  list->setForegroundRole(QPalette::Mid);
  list->setAccessibleName(accessibleName);
  return list;
}

/// A list of filters, in columns, that shares its page with another.
QListWidget* FilterList(SettingsList control, const QString& accessibleName) {
  auto* list = List(control, accessibleName);
  list->setFont(Monospaced());
  list->setMinimumHeight(list->fontMetrics().lineSpacing() * kLinesOfList);
  QSizePolicy policy = list->sizePolicy();
  policy.setVerticalPolicy(QSizePolicy::Ignored);
  list->setSizePolicy(policy);
  return list;
}

QPushButton* RemoveButton(SettingsButton control, QListWidget* list,
                          const QString& caption = "Remove Selected Filter") {
  auto* button = Button(control, caption);
  button->setMinimumWidth(button->sizeHint().width() + 2 * kGroupSpacing);
  button->setEnabled(false);
  auto* deleteKey = new QShortcut(Qt::Key_Delete, list, nullptr, nullptr, Qt::WidgetShortcut);
  QObject::connect(deleteKey, &QShortcut::activated, button, &QPushButton::click);
  return button;
}

QHBoxLayout* Row(std::initializer_list<QWidget*> widgets) {
  auto* row = new QHBoxLayout;
  for (QWidget* widget : widgets) row->addWidget(widget);
  return row;
}

/// A page with its layout, which the caller fills from top to bottom.
QVBoxLayout* AddPage(QTabWidget& tabs, const char* name, const QString& caption,
                     const char* helpTopic) {
  auto* page = new QWidget;
  page->setObjectName(name);
  page->setProperty("helpTopic", helpTopic);
  page->setAccessibleName(caption);
  tabs.addTab(page, caption);
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
  return layout;
}

void AddGeneral(QTabWidget& tabs) {
  auto* page = AddPage(tabs, "SSActiveTabPanel1", "General", "SettingsGeneral");
  auto* frame = new QGroupBox("Trap Decoding");
  frame->setObjectName("Frame1");
  auto* options = new QVBoxLayout(frame);
  options->addWidget(Named(new QRadioButton("Decode Trap OIDs"), kCheckDecode));
  options->addWidget(
      Named(new QRadioButton("Display raw data, do not decode Trap OIDs"), kCheckRaw));
  page->addWidget(frame);
  page->addStretch();
}

QLayout* MakeExamples() {
  auto* texts = new QHBoxLayout;
  for (const SettingsText column : {kExampleList, kExampleNames}) {
    auto* label = Label(column);
    label->setFont(Monospaced());
    texts->addWidget(label);
    texts->addSpacing(kColumnSpacing);
  }
  texts->addStretch();
  auto* layout = new QVBoxLayout;
  layout->addWidget(Label(kExamplesLabel, "Examples:"));
  layout->addLayout(texts);
  return layout;
}

void AddIpv6DeviceFilter(QVBoxLayout& page) {
  page.addSpacing(kGroupSpacing);
  auto* label = Label(kAddIpv6Label, "Add New IPv6 Address, Prefix, or Address Range");
  page.addWidget(label);
  auto* box = EntryBox(kNewIpv6DeviceFilter, label);
  box->setPlaceholderText("2001:db8::1, 2001:db8::/32, or 2001:db8::1 - 2001:db8::ff");
  auto* add = Button(kCmdAddIpv6DeviceFilter, "Add ");
  add->setAccessibleName("Add IPv6 Filter");
  page.addLayout(Row({box, add}));
  auto* list = FilterList(kIpv6DeviceFilterList, "IPv6 Device Filters");
  page.addWidget(list, 1);
  auto* remove = RemoveButton(kCmdDeleteIpv6DeviceFilter, list, "Remove Selected IPv6 Filter");
  auto* note = Label(kIpv6Note);
  note->setWordWrap(true);
  note->setMinimumHeight(note->fontMetrics().lineSpacing() * kLinesOfNote);
  auto* row = new QHBoxLayout;
  row->addWidget(remove);
  row->addSpacing(kColumnSpacing);
  row->addWidget(note, 1);
  page.addLayout(row);
}

void AddDeviceFilter(QTabWidget& tabs) {
  auto* page = AddPage(tabs, "SSActiveTabPanel2", "Device Filter", "SettingsDeviceFilter");
  page->addWidget(Named(
      new QCheckBox("Enable Device Filtering (Only receive SNMP Traps from specific devices)"),
      kCheckDeviceFilter));
  page->addSpacing(kGroupSpacing);
  auto* label = Label(kAddLabel, "Add New IP Address, Subnet, or Address Range");
  auto* box = EntryBox(kNewDeviceFilter, label);
  box->setMinimumWidth(box->fontMetrics().horizontalAdvance(" 255.255.255.255 - 255.255.255.255 "));
  auto* entry = new QVBoxLayout;
  entry->addWidget(label);
  entry->addLayout(Row({box, Button(kCmdAddDeviceFilter, "Add ")}));
  entry->addStretch();
  auto* upper = new QHBoxLayout;
  upper->addLayout(entry, 1);
  upper->addSpacing(kColumnSpacing);
  upper->addLayout(MakeExamples());
  page->addLayout(upper);
  page->addSpacing(kGroupSpacing);
  auto* list = FilterList(kDeviceFilterList, "Device Filters");
  page->addWidget(list, 1);
  page->addWidget(RemoveButton(kCmdDeleteDeviceFilter, list), 0, Qt::AlignLeft);
  AddIpv6DeviceFilter(*page);
}

void AddCommunityFilter(QTabWidget& tabs) {
  auto* page = AddPage(tabs, "SSActiveTabPanel4", "Community Filter", "SettingsCommunityFilter");
  page->addWidget(Named(new QCheckBox("Enable SNMP Community Filtering"), kCheckCommunity));
  page->addWidget(Label(kLabel1, "Only accept SNMP Traps with certain Community strings"));
  page->addSpacing(kGroupSpacing);
  auto* label = Label(kNewCommunityLabel, "New SNMP Community String");
  page->addWidget(label);
  page->addLayout(Row({EntryBox(kNewCommunity, label), Button(kCmdAddCommunity, "Add ")}));
  page->addSpacing(kGroupSpacing);
  auto* list = List(kCommunityList, "Community Strings");
  page->addWidget(list, 1);
  page->addWidget(RemoveButton(kCmdDeleteCommunity, list), 0, Qt::AlignLeft);
}

void AddLogging(QTabWidget& tabs) {
  auto* page = AddPage(tabs, "SSActiveTabPanel3", "Logging", "SettingsLogging");
  page->addWidget(Named(new QCheckBox("Log Traps to a file as they arrive"), kCheckLoggingActive));
  page->addSpacing(kGroupSpacing);
  auto* label = Label(kLogLabel, "Logging File");
  auto* select = Button(kCmdSelectLogFile, "...");
  select->setAccessibleName("Select Logging File");
  select->setMaximumWidth(select->sizeHint().height() * 3 / 2);
  page->addWidget(label);
  page->addLayout(Row({EntryBox(kLogFilename, label), select}));
  auto* problem = Label(kLogProblem);
  problem->setWordWrap(true);
  page->addWidget(problem);
  page->addStretch();
}

void AddVersion3Users(QTabWidget& tabs, QWidget* users) {
  auto* page = AddPage(tabs, "Version3UsersPage", "Version 3 Users", "SettingsVersion3Users");
  users->layout()->setContentsMargins(0, 0, 0, 0);
  page->addWidget(users);
}

}  // namespace

QTabWidget* MakeSettingsTabs(QWidget* version3Users) {
  auto* tabs = new QTabWidget;
  tabs->setObjectName("Tabs");
  tabs->setAccessibleName("Settings");
  AddGeneral(*tabs);
  AddDeviceFilter(*tabs);
  AddCommunityFilter(*tabs);
  AddLogging(*tabs);
  AddVersion3Users(*tabs, version3Users);
  return tabs;
}

}  // namespace sentrel
