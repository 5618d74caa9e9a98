#include "desktop/forms/checked_dialog.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace sentrel {

CheckedDialog::CheckedDialog(const QString& title, QWidget* entries, Check check, QWidget* owner)
    : QDialog(owner), check_(std::move(check)), problem_(new QLabel) {
  setWindowTitle(title);
  problem_->setObjectName("Problem");
  problem_->setTextFormat(Qt::PlainText);
  problem_->setWordWrap(true);
  problem_->hide();
  auto* ok = new QPushButton("OK");
  ok->setObjectName("cmdOK");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &CheckedDialog::accept);
  auto* cancel = new QPushButton("Cancel");
  cancel->setObjectName("cmdCancel");
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &CheckedDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(entries);
  layout->addWidget(problem_);
  layout->addStretch();
  layout->addLayout(buttons);
}

void CheckedDialog::accept() {
  const std::string problem = check_();
  problem_->setText(QString::fromStdString(problem));
  problem_->setVisible(!problem.empty());
  if (problem.empty()) QDialog::accept();
}

}  // namespace sentrel
