#include "desktop/settings_pages.h"

#include <QCheckBox>
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

QFont Monospaced() {
  QFont font;
  font.setFamilies({"Courier", "monospace"});
  font.setStyleHint(QFont::Monospace);
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
  list->setAccessibleName(accessibleName);
  return list;
}

QPushButton* RemoveButton(SettingsButton control, QListWidget* list) {
  auto* button = Button(control, "Remove Selected Filter");
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
QVBoxLayout* AddPage(QTabWidget& tabs, const char* name, const QString& caption) {
  auto* page = new QWidget;
  page->setObjectName(name);
  page->setAccessibleName(caption);
  tabs.addTab(page, caption);
  return new QVBoxLayout(page);
}

void AddGeneral(QTabWidget& tabs) {
  auto* page = AddPage(tabs, "SSActiveTabPanel1", "General");
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
  auto* examples = Label(kExampleList);
  examples->setFont(Monospaced());
  auto* texts = Row({examples, Label(kExampleNames)});
  texts->addStretch();
  auto* layout = new QVBoxLayout;
  layout->addWidget(Label(kExamplesLabel, "Examples:"));
  layout->addLayout(texts);
  return layout;
}

void AddDeviceFilter(QTabWidget& tabs) {
  auto* page = AddPage(tabs, "SSActiveTabPanel2", "Device Filter");
  page->addWidget(Named(
      new QCheckBox("Enable Device Filtering (Only receive SNMP Traps from specific devices)"),
      kCheckDeviceFilter));
  auto* label = Label(kAddLabel, "Add New IP Address, Subnet, or Address Range");
  auto* entry = new QVBoxLayout;
  entry->addWidget(label);
  entry->addLayout(Row({EntryBox(kNewDeviceFilter, label), Button(kCmdAddDeviceFilter, "Add ")}));
  entry->addStretch();
  auto* upper = new QHBoxLayout;
  upper->addLayout(entry, 1);
  upper->addLayout(MakeExamples());
  page->addLayout(upper);

  auto* list = List(kDeviceFilterList, "Device Filters");
  list->setFont(Monospaced());
  page->addWidget(list, 1);
  page->addWidget(RemoveButton(kCmdDeleteDeviceFilter, list), 0, Qt::AlignLeft);
}

void AddCommunityFilter(QTabWidget& tabs) {
  auto* page = AddPage(tabs, "SSActiveTabPanel4", "Community Filter");
  page->addWidget(Named(new QCheckBox("Enable SNMP Community Filtering"), kCheckCommunity));
  page->addWidget(Label(kLabel1, "Only accept SNMP Traps with certain Community strings"));
  auto* label = Label(kNewCommunityLabel, "New SNMP Community String");
  page->addWidget(label);
  page->addLayout(Row({EntryBox(kNewCommunity, label), Button(kCmdAddCommunity, "Add ")}));
  auto* list = List(kCommunityList, "Community Strings");
  page->addWidget(list, 1);
  page->addWidget(RemoveButton(kCmdDeleteCommunity, list), 0, Qt::AlignLeft);
}

void AddLogging(QTabWidget& tabs) {
  auto* page = AddPage(tabs, "SSActiveTabPanel3", "Logging");
  page->addWidget(Named(new QCheckBox("Log Traps to a file as they arrive"), kCheckLoggingActive));
  auto* label = Label(kLogLabel, "Logging File");
  auto* select = Button(kCmdSelectLogFile, "...");
  select->setAccessibleName("Select Logging File");
  page->addWidget(label);
  page->addLayout(Row({EntryBox(kLogFilename, label), select}));
  page->addStretch();
}

}  // namespace

QTabWidget* MakeSettingsTabs() {
  auto* tabs = new QTabWidget;
  tabs->setObjectName("Tabs");
  tabs->setAccessibleName("Settings");
  AddGeneral(*tabs);
  AddDeviceFilter(*tabs);
  AddCommunityFilter(*tabs);
  AddLogging(*tabs);
  return tabs;
}

}  // namespace sentrel
