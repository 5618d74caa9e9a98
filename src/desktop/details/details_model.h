#pragma once

#include <QAbstractItemModel>
#include <QTimer>
#include <memory>

#include "details/trap_details.h"

namespace sentrel {

/// The details of a trap as a tree of Name, OID, Type and Value. A view asks each line whether it
/// has parts, for which it must be made: so the first lines are there at once, and the others are
/// added in slices while nothing else is to be done. Used on the event loop only.
class DetailsModel : public QAbstractItemModel {
  Q_OBJECT
 public:
  enum Column { kName, kOid, kType, kValue, kColumns };

  explicit DetailsModel(QObject* parent);

  /// Null for no trap.
  void Show(std::shared_ptr<const TrapDetails> details);
  const std::shared_ptr<const TrapDetails>& Details() const { return details_; }
  /// The whole of a text, which the tree may show in one line and cut.
  QString WholeText(const QModelIndex& index, Column column) const;
  const DetailLine* LineOf(const QModelIndex& index) const;
  /// Adds lines up to this one, if it is missing yet.
  QModelIndex IndexOf(std::size_t line);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  void AddUpTo(std::size_t lines);

  std::shared_ptr<const TrapDetails> details_;
  std::size_t shown_ = 0;
  QTimer more_;
};

}  // namespace sentrel
