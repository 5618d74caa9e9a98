#pragma once

#include <QTableWidget>
#include <string>
#include <vector>

namespace sentrel {

/// A read-only list with columns, whose texts are shown as they are: nothing in them is obeyed or
/// hidden. Texts that do not fit are cut, and whole in the tooltip.
class ListView : public QTableWidget {
  Q_OBJECT
 public:
  /// The last column takes the room that is left.
  ListView(const char* name, const QString& accessibleName, const QStringList& titles);

  /// As columns of numbers are.
  void AlignRight(int col);
  /// Puts one text into each column of a row, which must exist.
  void SetTexts(int row, const std::vector<std::string>& texts);
  /// Adds a row on top; a view that is not at its top goes on showing the same rows.
  void AddOnTop(const std::vector<std::string>& texts);
  /// Adds a row at the end, and shows it where the end was shown.
  void AddAtEnd(const std::vector<std::string>& texts);
  /// -1 where no row is selected.
  int SelectedRow() const;

 private:
  std::vector<int> rightAligned_;
};

}  // namespace sentrel
