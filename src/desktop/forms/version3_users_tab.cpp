#include "desktop/forms/version3_users_tab.h"

#include <QClipboard>
#include <QDateTime>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QLocale>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/forms/checked_dialog.h"
#include "desktop/forms/version3_user_entries.h"

namespace sentrel {
namespace {

/// The only one that may be too long for its place.
constexpr int kEngineColumn = 4;

QString HeardText(const std::optional<std::chrono::system_clock::time_point>& heard) {
  if (!heard) return "not yet";
  const auto time =
      std::chrono::duration_cast<std::chrono::milliseconds>(heard->time_since_epoch());
  return QLocale().toString(QDateTime::fromMSecsSinceEpoch(time.count()), QLocale::ShortFormat);
}

QStringList CellsOf(const Version3UserLine& line) {
  QStringList cells;
  for (const std::string& text :
       {line.name, line.leastLevel, line.authentication, line.privacy, line.engine})
    cells << QString::fromStdString(text);
  return cells << HeardText(line.lastHeard) << QString::fromStdString(line.home);
}

}  // namespace

Version3UsersTab::Version3UsersTab(Version3UserStore& store, MessageBox& messageBox)
    : page_(store, messageBox, *this),
      table_(new QTableWidget),
      note_(new QLabel),
      add_(Button("cmdAddUser", "Add...", &Version3UsersPage::Add)),
      change_(Button("cmdChangeUser", "Change...", &Version3UsersPage::Change)),
      remove_(Button("cmdRemoveUser", "Remove", &Version3UsersPage::Remove)),
      paste_(Button("cmdPasteUsers", "Paste Lines", &Version3UsersPage::Paste)),
      forget_(Button("cmdForgetEngine", "Forget Engine...", &Version3UsersPage::ForgetEngine)) {
  paste_->setToolTip("Takes users from createUser lines, or a device's own, in the clipboard");
  forget_->setToolTip("For a device that was replaced or reset to factory settings");
  note_->setObjectName("Version3UsersNote");
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  MakeTable();
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {add_, change_, remove_, paste_, forget_}) buttons->addWidget(button);
  buttons->addStretch();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel("Users whose SNMP version 3 traps and informs are received"));
  layout->addWidget(table_, 1);
  layout->addLayout(buttons);
  layout->addWidget(note_);
}

void Version3UsersTab::MakeTable() {
  table_->setObjectName("Version3Users");
  table_->setAccessibleName("Version 3 users");
  const QStringList captions{"Name",      "Least Level", "Authentication", "Privacy",
                             "Engine ID", "Last Heard",  "Set In"};
  table_->setColumnCount(static_cast<int>(captions.size()));
  table_->setHorizontalHeaderLabels(captions);
  table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table_->horizontalHeader()->setSectionResizeMode(kEngineColumn, QHeaderView::Stretch);
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table_->setTextElideMode(Qt::ElideMiddle);
  table_->verticalHeader()->hide();
  table_->setShowGrid(false);
  table_->setWordWrap(false);
  table_->setTabKeyNavigation(false);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  connect(table_, &QTableWidget::itemSelectionChanged, this, [this] { page_.SelectionChanged(); });
  connect(table_, &QTableWidget::cellActivated, this, [this] { page_.Change(); });
  const auto addKey = [this](const QKeySequence& key, QPushButton* button) {
    auto* shortcut = new QShortcut(key, table_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
  };
  addKey(Qt::Key_Delete, remove_);
  addKey(QKeySequence::Paste, paste_);
}

QPushButton* Version3UsersTab::Button(const char* name, const QString& caption,
                                      void (Version3UsersPage::*step)()) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [this, step] {
    table_->setFocus();  // else a button that becomes disabled passes the focus on towards OK
    (page_.*step)();
  });
  return button;
}

void Version3UsersTab::ShowUsers(const std::vector<Version3UserLine>& lines) {
  const QSignalBlocker noSelectionChanges(table_);
  table_->clearSelection();
  table_->setRowCount(static_cast<int>(lines.size()));
  for (int row = 0; row < table_->rowCount(); ++row) {
    const QStringList cells = CellsOf(lines[static_cast<std::size_t>(row)]);
    for (int column = 0; column < cells.size(); ++column)
      table_->setItem(row, column, new QTableWidgetItem(cells[column]));
    table_->item(row, kEngineColumn)->setToolTip(cells[kEngineColumn]);
  }
}

std::optional<std::size_t> Version3UsersTab::SelectedUser() const {
  const auto selected = table_->selectionModel()->selectedRows();
  if (selected.isEmpty()) return std::nullopt;
  return static_cast<std::size_t>(selected.front().row());
}

void Version3UsersTab::SelectUser(std::size_t line) {
  table_->selectRow(static_cast<int>(line));
}

void Version3UsersTab::EnableUserButtons(const Version3UserButtons& enabled) {
  for (QPushButton* button : {add_, paste_, forget_}) button->setEnabled(enabled.add);
  change_->setEnabled(enabled.change);
  remove_->setEnabled(enabled.remove);
}

void Version3UsersTab::ShowUsersNote(const std::string& note) {
  note_->setText(QString::fromStdString(note).replace("\r\n", "\n"));
}

bool Version3UsersTab::EditUser(Version3UserDraft& draft, const DraftCheck& check) {
  auto* entries = new Version3UserEntries(draft);
  CheckedDialog dialog(
      "Version 3 User", entries, [&] { return check(entries->Draft()); }, this);
  dialog.setObjectName("Version3UserForm");
  if (dialog.exec() != QDialog::Accepted) return false;
  draft = entries->Draft();
  return true;
}

bool Version3UsersTab::EditEngine(std::string& engine, const EngineCheck& check) {
  auto* box = new QLineEdit(QString::fromStdString(engine));
  box->setObjectName("ForgottenEngine");
  box->setMinimumWidth(box->fontMetrics().averageCharWidth() * 50);
  auto* entries = new QWidget;
  auto* rows = new QFormLayout(entries);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addRow("Engine ID", box);
  const auto entered = [box] { return box->text().toStdString(); };
  CheckedDialog dialog(
      "Forget Engine", entries, [&] { return check(entered()); }, this);
  dialog.setObjectName("ForgetEngineForm");
  if (dialog.exec() != QDialog::Accepted) return false;
  engine = entered();
  return true;
}

std::string Version3UsersTab::ClipboardText() const {
  return QGuiApplication::clipboard()->text().toStdString();
}

}  // namespace sentrel
