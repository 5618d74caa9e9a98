#pragma once

#include <QLineEdit>
#include <QMainWindow>

#include "desktop/help/help_view.h"

namespace sentrel {

/// The window in which the help is read.
class HelpWindow : public QMainWindow {
  Q_OBJECT
 public:
  HelpWindow();

  /// Shows the page and brings the window to the front, also while a modal dialog is open.
  void ShowPage(const QUrl& page);

 private:
  void AddTools();
  QAction* AddTool(const char* name, const char* iconId, const QString& caption,
                   const QKeySequence& keys);
  void SearchEntered();
  void PageChanged(const QUrl& page);
  void Print();

  HelpView* view_;
  QLineEdit* search_;
};

}  // namespace sentrel
