#include "desktop/export/export_columns_dialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace sentrel {

ExportColumnsDialog::ExportColumnsDialog(const QStringList& titles, const QStringList& leftOut,
                                         QWidget* owner)
    : QDialog(owner), list_(new QListWidget(this)) {
  setObjectName("ExportColumns");
  setWindowTitle("Columns");
  list_->setObjectName("Columns");
  list_->setAccessibleName("Columns to take");
  for (const QString& title : titles) {
    auto* item = new QListWidgetItem(title, list_);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(leftOut.contains(title) ? Qt::Unchecked : Qt::Checked);
  }
  list_->setCurrentRow(0);

  auto* label = new QLabel("&Columns to take:", this);
  label->setBuddy(list_);
  auto* marks = new QHBoxLayout;
  marks->addWidget(AddButton("&All", Qt::Checked));
  marks->addWidget(AddButton("&None", Qt::Unchecked));
  marks->addStretch();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addWidget(list_);
  layout->addLayout(marks);
  layout->addWidget(buttons);

  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QListWidget::itemChanged, this, &ExportColumnsDialog::ItemsChanged);
  ItemsChanged();
  ok_->setDefault(true);
  list_->setFocus();
}

std::vector<std::size_t> ExportColumnsDialog::Ticked() const {
  std::vector<std::size_t> ticked;
  for (int row = 0; row < list_->count(); ++row) {
    if (list_->item(row)->checkState() == Qt::Checked) {
      ticked.push_back(static_cast<std::size_t>(row));
    }
  }
  return ticked;
}

QStringList ExportColumnsDialog::LeftOut() const {
  QStringList titles;
  for (int row = 0; row < list_->count(); ++row) {
    if (list_->item(row)->checkState() == Qt::Unchecked) titles << list_->item(row)->text();
  }
  return titles;
}

QPushButton* ExportColumnsDialog::AddButton(const QString& text, Qt::CheckState state) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(QString(text).remove('&'));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, list_, [this, state] {
    for (int row = 0; row < list_->count(); ++row) list_->item(row)->setCheckState(state);
  });
  return button;
}

void ExportColumnsDialog::ItemsChanged() {
  ok_->setEnabled(!Ticked().empty());
}

}  // namespace sentrel
