#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <chrono>
#include <memory>

#include "documents/progress.h"

namespace sentrel {

/// A task that takes longer than this shows how far it has come.
inline constexpr std::chrono::milliseconds kSilentWork{300};

/// Whether the user may cancel the task.
enum class CancelButton { Shown, Hidden };

/// Shows a dialog if a task takes long, counted from the first call of Advance, and handles events
/// while it is open. Used on the event loop.
class ProgressDialog : public Progress {
 public:
  /// The dialog opens above the owner, which must outlive it; null means no owner.
  ProgressDialog(QWidget* owner, const QString& what, CancelButton button = CancelButton::Shown,
                 std::chrono::milliseconds silence = kSilentWork);

  void Advance(std::size_t done, std::size_t total) override;

 private:
  void Show();

  QWidget* owner_;
  QString what_;
  CancelButton button_;
  std::chrono::milliseconds silence_;
  QElapsedTimer sinceStart_;
  QElapsedTimer sinceEvents_;
  std::unique_ptr<QProgressDialog> dialog_;
};

}  // namespace sentrel
