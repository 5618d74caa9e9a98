#pragma once

#include <QDialog>
#include <QLabel>
#include <QSpinBox>
#include <QToolBar>
#include <memory>

#include "desktop/export/page_view.h"

namespace sentrel {

/// Shows pages as they will be printed. Whoever opens it prints and chooses the paper. Used on the
/// event loop.
class PreviewWindow : public QDialog {
  Q_OBJECT
 public:
  PreviewWindow(QWidget* owner, const QString& title);

  /// Never null.
  void ShowPages(const std::shared_ptr<const PrintablePages>& pages);

 signals:
  void PrintAsked();
  void PageSetupAsked();

 private:
  void AddTools();
  template <typename Act>
  void AddTool(const char* name, const QString& text, const QKeySequence& key, Act act);

  PageView* view_;
  QToolBar* tools_;
  QSpinBox* page_;
  QLabel* count_;
};

}  // namespace sentrel
