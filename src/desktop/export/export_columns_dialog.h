#pragma once

#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <optional>
#include <vector>

namespace sentrel {

/// Asks which columns to take, at least one.
class ExportColumnsDialog : public QDialog {
  Q_OBJECT
 public:
  ExportColumnsDialog(const QStringList& titles, const QStringList& leftOut, QWidget* owner);

  /// Indices of the ticked titles, in ascending order.
  std::vector<std::size_t> Ticked() const;
  QStringList LeftOut() const;

 private:
  QPushButton* AddButton(const QString& text, Qt::CheckState state);
  void ItemsChanged();

  QListWidget* list_;
  QPushButton* ok_ = nullptr;
};

}  // namespace sentrel
