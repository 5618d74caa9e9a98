#include "desktop/forms/settings_dialog.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <utility>

#include "desktop/forms/settings_pages.h"

namespace sentrel {

using namespace settings_controls;

namespace {

constexpr std::chrono::milliseconds kTypingPause{600};

QPushButton* ClosingButton(SettingsButton control, const QString& caption) {
  auto* button = new QPushButton(caption);
  button->setObjectName(control.name);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

SettingsDialog::SettingsDialog(Settings& settings, MessageBox& messageBox, FileDialog& fileDialog,
                               const LogFile& logFile, Version3UserStore& version3Users,
                               QWidget* owner)
    : QDialog(owner),
      version3Users_(new Version3UsersTab(version3Users, messageBox)),
      tabs_(MakeSettingsTabs(version3Users_)),
      form_(settings, messageBox, fileDialog, logFile, version3Users_->Page(), *this) {
  setObjectName("SettingsForm");
  setWindowTitle("Sentrel Settings ...");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs_);
  auto* closing = new QHBoxLayout;
  closing->addStretch();
  closing->addWidget(ClosingButton(kCmdOK, "OK"));
  closing->addWidget(ClosingButton(kCmdCancel, "Cancel"));
  layout->addLayout(closing);
  const auto takeHelpTopic = [this] {
    setProperty("helpTopic", tabs_->currentWidget()->property("helpTopic"));
  };
  takeHelpTopic();
  connect(tabs_, &QTabWidget::currentChanged, this, takeHelpTopic);
  ConnectChecks();
  ConnectButtons();
  ConnectLogFilename();
  ConnectList(kDeviceFilterList, kCmdDeleteDeviceFilter, &SettingsForm::DeviceFilterList_Click,
              &SettingsForm::cmdDeleteDeviceFilter_Click);
  ConnectList(kIpv6DeviceFilterList, kCmdDeleteIpv6DeviceFilter,
              &SettingsForm::Ipv6DeviceFilterList_Click,
              &SettingsForm::cmdDeleteIpv6DeviceFilter_Click);
  ConnectList(kCommunityList, kCmdDeleteCommunity, &SettingsForm::CommunityList_Click,
              &SettingsForm::cmdDeleteCommunity_Click);
  for (const SettingsText box : {kNewDeviceFilter, kNewIpv6DeviceFilter, kNewCommunity})
    Find<QWidget>(box).installEventFilter(this);
  form_.Form_Load();
  Find<QWidget>(settings.Raw() ? kCheckRaw : kCheckDecode).setFocus();
}

void SettingsDialog::ConnectChecks() {
  const std::pair<SettingsCheck, void (SettingsForm::*)()> clicks[] = {
      {kCheckDeviceFilter, &SettingsForm::checkDeviceFilter_Click},
      {kCheckCommunity, &SettingsForm::checkCommunity_Click},
      {kCheckLoggingActive, &SettingsForm::checkLoggingActive_Click},
  };
  for (const auto& [check, click] : clicks) {
    connect(&Find<QAbstractButton>(check), &QAbstractButton::toggled, this,
            [this, click = click] { (form_.*click)(); });
  }
}

void SettingsDialog::ConnectButtons() {
  const std::pair<SettingsButton, void (SettingsForm::*)()> clicks[] = {
      {kCmdAddDeviceFilter, &SettingsForm::cmdAddDeviceFilter_Click},
      {kCmdAddIpv6DeviceFilter, &SettingsForm::cmdAddIpv6DeviceFilter_Click},
      {kCmdAddCommunity, &SettingsForm::cmdAddCommunity_Click},
      {kCmdSelectLogFile, &SettingsForm::cmdSelectLogFile_Click},
      {kCmdOK, &SettingsForm::cmdOK_Click},
      {kCmdCancel, &SettingsForm::cmdCancel_Click},
  };
  for (const auto& [button, click] : clicks) {
    connect(&Find<QAbstractButton>(button), &QAbstractButton::clicked, this,
            [this, click = click] { (form_.*click)(); });
  }
}

void SettingsDialog::ConnectLogFilename() {
  auto* box = &Find<QLineEdit>(kLogFilename);
  auto* pause = new QTimer(this);
  pause->setSingleShot(true);
  pause->setInterval(kTypingPause);
  connect(box, &QLineEdit::textEdited, pause, qOverload<>(&QTimer::start));
  connect(pause, &QTimer::timeout, this, [this] { form_.LogFilename_Pause(); });
  connect(box, &QLineEdit::editingFinished, this, [this] { form_.LogFilename_LostFocus(); });
}

void SettingsDialog::ConnectList(SettingsList list, SettingsButton removeButton,
                                 void (SettingsForm::*selected)(), void (SettingsForm::*remove)()) {
  auto* lines = &Find<QListWidget>(list);
  connect(lines, &QListWidget::itemSelectionChanged, this,
          [this, selected] { (form_.*selected)(); });
  connect(&Find<QAbstractButton>(removeButton), &QAbstractButton::clicked, this,
          [this, lines, remove] {
            lines->setFocus();  // else the button, now disabled, passes the focus on towards OK
            (form_.*remove)();
          });
}

bool SettingsDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const QString typed = static_cast<QKeyEvent*>(event)->text();
    const char32_t key = typed.isEmpty() ? U'\0' : typed[0].unicode();
    if (TakesKey(watched->objectName(), key)) return true;
  }
  return QDialog::eventFilter(watched, event);
}

bool SettingsDialog::TakesKey(const QString& box, char32_t key) {
  if (box == kNewCommunity.name) return form_.NewCommunity_KeyPress(key);
  if (box == kNewIpv6DeviceFilter.name) return form_.NewIpv6DeviceFilter_KeyPress(key);
  return form_.NewDeviceFilter_KeyPress(key);
}

void SettingsDialog::SetHelpContext(int number) {
  setProperty("helpContext", number);
}

void SettingsDialog::SelectTab(int tab) {
  tabs_->setCurrentIndex(tab - 1);
}

void SettingsDialog::Close() {
  done(QDialog::Accepted);
}

void SettingsDialog::SetVisible(SettingsControl control, bool visible) {
  Find<QWidget>(control).setVisible(visible);
}

void SettingsDialog::SetEnabled(SettingsControl control, bool enabled) {
  Find<QWidget>(control).setEnabled(enabled);
}

void SettingsDialog::SetFocus(SettingsControl control) {
  auto& widget = Find<QWidget>(control);
  if (widget.isVisible()) widget.setFocus();
}

bool SettingsDialog::Checked(SettingsCheck check) const {
  return Find<QAbstractButton>(check).isChecked();
}

void SettingsDialog::SetChecked(SettingsCheck check, bool checked) {
  Find<QAbstractButton>(check).setChecked(checked);
}

std::string SettingsDialog::Text(SettingsText box) const {
  return Find<QWidget>(box).property("text").toString().toStdString();
}

void SettingsDialog::SetText(SettingsText box, const std::string& text) {
  Find<QWidget>(box).setProperty("text", QString::fromStdString(text).replace("\r\n", "\n"));
}

void SettingsDialog::SelectText(SettingsText box) {
  Find<QLineEdit>(box).selectAll();
}

std::vector<std::string> SettingsDialog::Lines(SettingsList list) const {
  const auto& widget = Find<QListWidget>(list);
  std::vector<std::string> lines;
  lines.reserve(static_cast<std::size_t>(widget.count()));
  for (int row = 0; row < widget.count(); ++row)
    lines.push_back(widget.item(row)->text().toStdString());
  return lines;
}

void SettingsDialog::AddLine(SettingsList list, const std::string& line) {
  auto& widget = Find<QListWidget>(list);
  widget.addItem(QString::fromStdString(line));
  if (widget.isVisible()) widget.scrollToBottom();
}

void SettingsDialog::RemoveLine(SettingsList list, std::size_t index) {
  auto& widget = Find<QListWidget>(list);
  const int row = static_cast<int>(index);
  delete widget.takeItem(row);
  // The toolkit selects a neighbour. The keyboard goes on from here, with nothing selected.
  widget.clearSelection();
  widget.setCurrentRow(std::min(row, widget.count() - 1), QItemSelectionModel::NoUpdate);
}

void SettingsDialog::ClearLines(SettingsList list) {
  auto& widget = Find<QListWidget>(list);
  widget.clearSelection();
  widget.clear();
}

std::optional<std::size_t> SettingsDialog::SelectedLine(SettingsList list) const {
  const auto& widget = Find<QListWidget>(list);
  const auto selected = widget.selectionModel()->selectedRows();
  if (selected.isEmpty()) return std::nullopt;
  return static_cast<std::size_t>(selected.front().row());
}

}  // namespace sentrel
