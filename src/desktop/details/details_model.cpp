#include "desktop/details/details_model.h"

#include <algorithm>
#include <array>

namespace sentrel {
namespace {

/// More than a screen has room for.
constexpr std::size_t kFirstLines = 128;
constexpr std::size_t kSlice = 256;
/// Characters of a text that the tree shows.
constexpr qsizetype kMostShown = 300;

/// The number that an index has in its top level; parts have that of their line, plus one.
constexpr quintptr kTop = 0;

constexpr std::array kTitles = {"Name", "OID", "Type", "Value"};

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

const std::string& TextOf(const DetailLine& line, int column) {
  switch (column) {
    case DetailsModel::kName:
      return line.name;
    case DetailsModel::kOid:
      return line.oid;
    case DetailsModel::kType:
      return line.type;
    default:
      return line.value;
  }
}

}  // namespace

DetailsModel::DetailsModel(QObject* parent) : QAbstractItemModel(parent) {
  connect(&more_, &QTimer::timeout, this, [this] { AddUpTo(shown_ + kSlice); });
}

void DetailsModel::Show(std::shared_ptr<const TrapDetails> details) {
  beginResetModel();
  details_ = std::move(details);
  const std::size_t lines = details_ ? details_->Lines() : 0;
  shown_ = std::min(lines, kFirstLines);
  endResetModel();
  if (shown_ < lines) {
    more_.start();
  } else {
    more_.stop();
  }
}

void DetailsModel::AddUpTo(std::size_t lines) {
  const std::size_t end = std::min(lines, details_->Lines());
  if (end > shown_) {
    beginInsertRows({}, static_cast<int>(shown_), static_cast<int>(end) - 1);
    shown_ = end;
    endInsertRows();
  }
  if (shown_ == details_->Lines()) more_.stop();
}

QModelIndex DetailsModel::IndexOf(std::size_t line) {
  if (line >= shown_) AddUpTo(line + 1);
  return index(static_cast<int>(line), 0);
}

const DetailLine* DetailsModel::LineOf(const QModelIndex& index) const {
  if (!index.isValid() || !details_) return nullptr;
  const auto row = static_cast<std::size_t>(index.row());
  if (index.internalId() == kTop) return &details_->Line(row);
  return &details_->Line(index.internalId() - 1).parts[row];
}

QString DetailsModel::WholeText(const QModelIndex& index, Column column) const {
  const DetailLine* const line = LineOf(index);
  if (line == nullptr) return {};
  const bool mayBeCut = column == kValue && index.internalId() == kTop;
  return Text(mayBeCut ? details_->WholeValue(static_cast<std::size_t>(index.row()))
                       : TextOf(*line, column));
}

QModelIndex DetailsModel::index(int row, int column, const QModelIndex& parent) const {
  if (row < 0 || column < 0 || column >= kColumns || row >= rowCount(parent)) return {};
  return createIndex(row, column,
                     parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : kTop);
}

QModelIndex DetailsModel::parent(const QModelIndex& index) const {
  if (!index.isValid() || index.internalId() == kTop) return {};
  return createIndex(static_cast<int>(index.internalId()) - 1, 0, kTop);
}

int DetailsModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(shown_);
  if (parent.internalId() != kTop || parent.column() != 0) return 0;
  return static_cast<int>(LineOf(parent)->parts.size());
}

int DetailsModel::columnCount(const QModelIndex&) const {
  return kColumns;
}

QVariant DetailsModel::data(const QModelIndex& index, int role) const {
  const DetailLine* const line = LineOf(index);
  if (line == nullptr) return {};
  const std::string& text = TextOf(*line, index.column());
  if (role == Qt::DisplayRole) return Text(text).left(kMostShown).simplified();
  if (role == Qt::ToolTipRole) return Text(text).left(4 * kMostShown).toHtmlEscaped();
  return {};
}

QVariant DetailsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 &&
                       section < kColumns;
  return isTitle ? QVariant(kTitles[static_cast<std::size_t>(section)]) : QVariant();
}

}  // namespace sentrel
