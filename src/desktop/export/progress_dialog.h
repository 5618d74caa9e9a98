#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <chrono>
#include <memory>

#include "documents/progress.h"

namespace sentrel {

/// Work that takes longer than this shows how far it has come.
inline constexpr std::chrono::milliseconds kSilentWork{300};

/// Shows a dialog over work that takes long, counted from the first call of Advance, and handles
/// events while it stands. The user ends the work with its Cancel button.
class ProgressDialog : public Progress {
 public:
  /// The dialog stands above the owner, which must outlive it.
  ProgressDialog(QWidget* owner, const QString& what,
                 std::chrono::milliseconds silence = kSilentWork);

  void Advance(std::size_t done, std::size_t total) override;

 private:
  void Show();

  QWidget* owner_;
  QString what_;
  std::chrono::milliseconds silence_;
  QElapsedTimer sinceStart_;
  QElapsedTimer sinceEvents_;
  std::unique_ptr<QProgressDialog> dialog_;
};

}  // namespace sentrel
