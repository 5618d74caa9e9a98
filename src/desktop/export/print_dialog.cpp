#include "desktop/export/print_dialog.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFileInfo>
#include <QSpinBox>

namespace sentrel {
namespace {

/// Does not open it, and follows links. A folder is left to the toolkit, which refuses it.
bool IsNoFile(const QString& path) {
  const QFileInfo info(path);
  return info.exists() && !info.isFile() && !info.isDir();
}

}  // namespace

PrintDialog::PrintDialog(QPrinter& printer, QWidget* owner, const QString& objectName)
    : QPrintDialog(&printer, owner), filename_(findChild<QLineEdit*>("filename")) {
  setObjectName(objectName);
  setOption(PrintPageRange);
  const auto* copies = findChild<QSpinBox*>("copies");
  copies_ = copies ? copies->parentWidget() : nullptr;
  const auto* buttons = findChild<QDialogButtonBox*>();
  accept_ = buttons ? buttons->button(QDialogButtonBox::Ok) : nullptr;
  if (!filename_ || !copies_ || !accept_) return;
  filename_->installEventFilter(this);
  connect(filename_, &QLineEdit::textChanged, this, &PrintDialog::Refresh);
  Refresh();
}

bool PrintDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == filename_ && event->type() == QEvent::EnabledChange) Refresh();
  return QPrintDialog::eventFilter(watched, event);
}

/// The name of a file can be entered exactly while the dialog is about to write one.
void PrintDialog::Refresh() {
  const bool toFile = filename_->isEnabled();
  const bool refused = toFile && IsNoFile(filename_->text());
  copies_->setEnabled(!toFile);
  accept_->setEnabled(!refused);
  filename_->setToolTip(refused ? "This is not a file." : "");
}

}  // namespace sentrel
