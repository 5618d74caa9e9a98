#pragma once

#include <QSplitter>
#include <QTreeView>
#include <QWidget>
#include <functional>
#include <memory>

#include "desktop/details/byte_view.h"
#include "desktop/details/details_model.h"

namespace sentrel {

/// A trap's details as a tree, and its bytes beside it: what is chosen in one is shown in the
/// other. Used on the event loop only.
class DetailsPanel : public QWidget {
  Q_OBJECT
 public:
  explicit DetailsPanel(QWidget* parent = nullptr);

  /// Null for no trap. A line that was chosen stays chosen by its name, where there is one.
  void Show(std::shared_ptr<const TrapDetails> details);
  /// Puts the bytes beside the tree, or below it.
  void Arrange(Qt::Orientation orientation);
  QTreeView& Tree() { return *tree_; }

 signals:
  /// The user wants the panel in the other place, right of the table or below it.
  void PlaceWanted(bool right);
  /// The user wants to go back to the table.
  void Left();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ShowBytesOf(const QModelIndex& index);
  void ChooseByte(std::size_t byte);
  void AddCommands();
  QAction* AddCommand(const QString& name, const QString& caption, std::function<void()> run);
  void AddSeparator();
  void OpenMenu();
  void Copy(const QString& text) const;
  void CopyColumn(DetailsModel::Column column) const;
  /// Says in the captions what is secret in a copy.
  void NameSecrets();

  QSplitter* panes_;
  QTreeView* tree_;
  ByteView* bytes_;
  DetailsModel* model_;
  /// Whether the bytes stay where they are, because the user has chosen one of them.
  bool choosingByte_ = false;
  QAction* copyText_ = nullptr;
  QAction* copyJson_ = nullptr;
};

}  // namespace sentrel
