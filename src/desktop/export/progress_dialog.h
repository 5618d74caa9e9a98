#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <chrono>
#include <memory>

#include "documents/progress.h"

namespace sentrel {

/// Work that takes longer than this shows how far it has come.
inline constexpr std::chrono::milliseconds kSilentWork{300};

/// Whether the user may give a work up.
enum class CancelButton { Shown, Hidden };

/// Shows a dialog over work that takes long, counted from the first call of Advance, and handles
/// events while it is open. Used on the event loop.
class ProgressDialog : public Progress {
 public:
  /// The dialog stands above the owner, which must outlive it; null is no owner.
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
