#pragma once

#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace sentrel {

/// The toolkit's dialog for a printer or a PDF file. Once accepted it opens the file, to see
/// whether it can be written: one that is no file, such as a pipe, could hold the program up for
/// good, so with its name the dialog cannot be accepted. Copies, which a PDF file cannot have, are
/// offered for printers alone.
class PrintDialog : public QPrintDialog {
  Q_OBJECT
 public:
  /// The printer must outlive the dialog.
  PrintDialog(QPrinter& printer, QWidget* owner, const QString& objectName);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Refresh();

  /// Null where the toolkit's dialog has no such thing.
  QLineEdit* filename_;
  QWidget* copies_;
  QPushButton* accept_;
};

}  // namespace sentrel
