#include "desktop/details/details_panel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

#include "details/copied_details.h"

namespace sentrel {
namespace {

void SetWidths(QTreeView& tree) {
  constexpr std::array kSamples = {"ifOperStatus.1000", "1.3.6.1.2.1.2.2", "OCTET STRING"};
  for (int col = 0; col < static_cast<int>(kSamples.size()); ++col) {
    tree.setColumnWidth(
        col, tree.fontMetrics().horizontalAdvance(kSamples[static_cast<std::size_t>(col)]) + 20);
  }
}

QTreeView* MakeTree() {
  auto* tree = new QTreeView;
  tree->setObjectName("TrapDetails");
  tree->setAccessibleName(DetailsPanel::tr("Trap details"));
  tree->setUniformRowHeights(true);
  tree->setAlternatingRowColors(true);
  tree->setAllColumnsShowFocus(true);
  tree->setTextElideMode(Qt::ElideRight);
  tree->setContextMenuPolicy(Qt::ActionsContextMenu);
  tree->header()->setStretchLastSection(true);
  return tree;
}

}  // namespace

DetailsPanel::DetailsPanel(QWidget* parent)
    : QWidget(parent),
      panes_(new QSplitter),
      tree_(MakeTree()),
      bytes_(new ByteView),
      model_(new DetailsModel(this)) {
  setObjectName("Details");
  setProperty("helpTopic", "Details");
  panes_->setObjectName("DetailsPanes");
  panes_->addWidget(tree_);
  panes_->addWidget(bytes_);
  panes_->setStretchFactor(0, 1);
  panes_->setChildrenCollapsible(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(panes_);
  tree_->setModel(model_);
  SetWidths(*tree_);
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &DetailsPanel::ShowBytesOf);
  connect(bytes_, &ByteView::ByteChosen, this, &DetailsPanel::ChooseByte);
  AddCommands();
}

void DetailsPanel::AddCommands() {
  AddCommand("CopyName", tr("Copy &Name"), [this] { CopyColumn(DetailsModel::kName); });
  AddCommand("CopyOid", tr("Copy &OID"), [this] { CopyColumn(DetailsModel::kOid); });
  AddCommand("CopyValue", tr("&Copy Value"), [this] {
    CopyColumn(DetailsModel::kValue);
  })->setShortcut(QKeySequence::Copy);
  AddSeparator();
  copyText_ = AddCommand("CopyText", "", [this] {
    if (model_->Details()) Copy(QString::fromStdString(DetailsAsText(*model_->Details())));
  });
  copyJson_ = AddCommand("CopyJson", "", [this] {
    if (model_->Details()) Copy(QString::fromStdString(DetailsAsJson(*model_->Details())));
  });
  AddSeparator();
  AddCommand("ShowRight", tr("Show on the &Right"), [this] { emit PlaceWanted(true); });
  AddCommand("ShowBelow", tr("Show &Below"), [this] { emit PlaceWanted(false); });
  NameSecrets();
  auto* menuKey = new QShortcut(QKeySequence("Shift+F10"), tree_);
  menuKey->setContext(Qt::WidgetShortcut);
  connect(menuKey, &QShortcut::activated, this, &DetailsPanel::OpenMenu);
}

void DetailsPanel::OpenMenu() {
  auto* menu = new QMenu(tree_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions(tree_->actions());
  const QRect line = tree_->visualRect(tree_->currentIndex());
  menu->popup(tree_->viewport()->mapToGlobal(line.bottomLeft()));
}

QAction* DetailsPanel::AddCommand(const QString& name, const QString& caption,
                                  std::function<void()> run) {
  auto* action = new QAction(caption, tree_);
  action->setObjectName(name);
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, std::move(run));
  tree_->addAction(action);
  return action;
}

void DetailsPanel::AddSeparator() {
  auto* separator = new QAction(tree_);
  separator->setSeparator(true);
  tree_->addAction(separator);
}

void DetailsPanel::NameSecrets() {
  const bool isUser = model_->Details() && model_->Details()->Version() == SnmpVersion::k3;
  const QString secret = isUser ? tr("with the name of the user") : tr("with the community");
  copyText_->setText(tr("Copy All as &Text (%1)").arg(secret));
  copyJson_->setText(tr("Copy All as &JSON (%1)").arg(secret));
}

void DetailsPanel::Show(std::shared_ptr<const TrapDetails> details) {
  const QString name = model_->WholeText(tree_->currentIndex(), DetailsModel::kName);
  bytes_->Show(details ? details->Message() : std::string_view());
  model_->Show(std::move(details));
  NameSecrets();
  const auto same = model_->match(model_->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
  tree_->setCurrentIndex(same.isEmpty() ? model_->index(0, 0) : same.front());
}

void DetailsPanel::Arrange(Qt::Orientation orientation) {
  panes_->setOrientation(orientation);
  if (!isVisible()) return;
  const bool isRow = orientation == Qt::Horizontal;
  const int bytes = isRow ? bytes_->sizeHint().width() : bytes_->sizeHint().height();
  panes_->setSizes({std::max((isRow ? width() : height()) - bytes, 1), bytes});
  tree_->scrollTo(tree_->currentIndex());
}

void DetailsPanel::ShowBytesOf(const QModelIndex& index) {
  const QModelIndex top = index.parent().isValid() ? index.parent() : index;
  const DetailLine* const line = model_->LineOf(top);
  const ByteRange bytes = line == nullptr ? ByteRange() : line->bytes;
  if (choosingByte_) {
    bytes_->Mark(bytes);
  } else {
    bytes_->Reveal(bytes);
  }
}

void DetailsPanel::ChooseByte(std::size_t byte) {
  const auto line = model_->Details() ? model_->Details()->LineAt(byte) : std::nullopt;
  if (!line) return bytes_->Mark({});
  choosingByte_ = true;
  tree_->setCurrentIndex(model_->IndexOf(*line));
  choosingByte_ = false;
  bytes_->Mark(model_->Details()->Line(*line).bytes);
}

void DetailsPanel::CopyColumn(DetailsModel::Column column) const {
  Copy(model_->WholeText(tree_->currentIndex(), column));
}

void DetailsPanel::Copy(const QString& text) const {
  if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

void DetailsPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  emit Left();
}

}  // namespace sentrel
