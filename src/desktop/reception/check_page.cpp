#include "desktop/reception/check_page.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace sentrel {
namespace {

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

CheckPage::CheckPage(SelfCheck& check)
    : check_(check),
      list_(new ListView("Check", "Check", {"Step", "Verdict", "What was found"})),
      finding_(new QLabel),
      command_(new QLineEdit),
      copy_(new QPushButton("Copy Co&mmand")) {
  auto* label = new QLabel(
      "The check looks at each step on the way of a trap, and sends one trap from this machine to "
      "itself, which appears in the table. Leave it open and send a trap from the device: what "
      "the system loses meanwhile is counted, and the page Watch shows what reaches the port.");
  label->setWordWrap(true);
  auto* start = new QPushButton("&Run the Check");
  start->setObjectName("RunCheck");
  connect(start, &QPushButton::clicked, this, &CheckPage::Start);
  for (const auto& [col, sample] :
       {std::pair(0, "Community filter"), std::pair(1, "Cannot tell")}) {
    list_->setColumnWidth(col, list_->fontMetrics().horizontalAdvance(sample) + 24);
  }
  connect(list_, &QTableWidget::itemSelectionChanged, this, &CheckPage::ShowFinding);
  finding_->setObjectName("Finding");
  finding_->setTextFormat(Qt::PlainText);
  finding_->setWordWrap(true);
  finding_->setMinimumHeight(3 * finding_->fontMetrics().lineSpacing());
  finding_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  command_->setObjectName("Command");
  command_->setAccessibleName("Command");
  command_->setReadOnly(true);
  command_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  copy_->setObjectName("CopyCommand");
  connect(copy_, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(command_->text()); });
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(command_);
  bottom->addWidget(copy_);
  auto* top = new QHBoxLayout;
  top->addWidget(label, 1);
  top->addWidget(start, 0, Qt::AlignTop);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(list_);
  layout->addWidget(finding_);
  layout->addLayout(bottom);
  ShowFinding();
}

void CheckPage::Start() {
  check_.Start(SelfCheck::Clock::now());
  emit Started();
  Refresh();
}

void CheckPage::Refresh() {
  check_.Look(SelfCheck::Clock::now());
  shown_ = check_.Steps();
  list_->setRowCount(static_cast<int>(shown_.size()));
  for (int row = 0; row < list_->rowCount(); ++row) {
    const CheckStep& step = shown_[static_cast<std::size_t>(row)];
    list_->SetTexts(row, {step.name, std::string(VerdictText(step.verdict)), step.finding});
    QFont font = list_->font();
    font.setBold(step.verdict == CheckVerdict::kLookHere);
    list_->item(row, 1)->setFont(font);
  }
  ShowFinding();
}

void CheckPage::ShowFinding() {
  const auto row = static_cast<std::size_t>(list_->SelectedRow());
  const bool isChosen = row < shown_.size();
  const QString hint = shown_.empty() ? "" : "Choose a line to see the whole of it.";
  finding_->setText(isChosen ? Text(shown_[row].finding) : hint);
  const QString command = isChosen ? Text(shown_[row].command) : QString();
  // Not set anew while it is the same: someone may be marking a part of it.
  if (command_->text() != command) command_->setText(command);
  command_->setEnabled(!command.isEmpty());
  copy_->setEnabled(!command.isEmpty());
}

}  // namespace sentrel
