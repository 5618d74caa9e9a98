#include "desktop/export/progress_dialog.h"

#include <QCoreApplication>

namespace sentrel {
namespace {

constexpr int kSteps = 1000;
constexpr qint64 kBetweenEvents = 30;  // milliseconds

}  // namespace

ProgressDialog::ProgressDialog(QWidget* owner, const QString& what, CancelButton button,
                               std::chrono::milliseconds silence)
    : owner_(owner), what_(what), button_(button), silence_(silence) {}

void ProgressDialog::Advance(std::size_t done, std::size_t total) {
  if (!sinceStart_.isValid()) sinceStart_.start();
  if (!dialog_ && !sinceStart_.hasExpired(silence_.count())) return;
  if (!dialog_) Show();
  if (sinceEvents_.isValid() && !sinceEvents_.hasExpired(kBetweenEvents)) return;
  dialog_->setValue(static_cast<int>(done * kSteps / total));
  QCoreApplication::processEvents();
  sinceEvents_.start();
  if (button_ == CancelButton::Shown && dialog_->wasCanceled()) throw Cancelled();
}

void ProgressDialog::Show() {
  dialog_ = std::make_unique<QProgressDialog>(what_, "Cancel", 0, kSteps, owner_);
  dialog_->setObjectName("ExportProgress");
  dialog_->setWindowTitle("Sentrel");
  if (button_ == CancelButton::Hidden) dialog_->setCancelButton(nullptr);
  dialog_->setWindowModality(Qt::WindowModal);
  dialog_->setMinimumDuration(0);
  dialog_->setAutoReset(false);
  dialog_->setAutoClose(false);
  dialog_->show();
}

}  // namespace sentrel
