#include "desktop/details/details_pane.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>

#include "console/trap_row.h"

namespace sentrel {
namespace {

constexpr const char* kSection = "Details";
constexpr const char* kShown = "Shown";
constexpr const char* kPlace = "Place";
constexpr const char* kSize = "Size";
constexpr const char* kTrue = "True";
constexpr const char* kFalse = "False";
constexpr const char* kRight = "Right";
constexpr const char* kBelow = "Below";

/// Of the window, when the details are first shown, in per cent.
constexpr int kFirstShare = 45;

int Length(const QSplitter& panes) {
  return panes.orientation() == Qt::Horizontal ? panes.width() : panes.height();
}

}  // namespace

DetailsPane::DetailsPane(TrapWindow& window, const Table& table, MibLibrary& names,
                         const MibFacts& facts, Registry& registry)
    : window_(window), table_(table), names_(names), facts_(facts), store_(registry) {}

void DetailsPane::Start() {
  command_ = &window_.Menus().AddViewCommand("&Details", QKeySequence("Ctrl+D"),
                                             [this] { Toggle(command_->isChecked()); });
  command_->setObjectName("View:Details");
  command_->setCheckable(true);
  connect(&window_.View(), &TableView::RowOpened, this, &DetailsPane::Open);
  connect(&window_.View(), &TableView::RowChosen, this, &DetailsPane::Follow);
  connect(qApp, &QApplication::aboutToQuit, this, &DetailsPane::StoreSize);
  if (Stored(kShown) != kTrue) return;
  command_->setChecked(true);
  Toggle(true);
}

std::string DetailsPane::Stored(const char* name) const {
  return store_.ReadRegistryValue(kApplicationDescription, kSection, name, "", true);
}

void DetailsPane::Store(const char* name, const std::string& text) {
  store_.SaveRegistryValue(kApplicationDescription, kSection, name, text, true);
}

void DetailsPane::Make() {
  panel_ = new DetailsPanel;
  panes_ = &window_.ShowBeside(*panel_);
  connect(panel_, &DetailsPanel::PlaceWanted, this, [this](bool right) {
    PutRight(right);
    Store(kPlace, right ? kRight : kBelow);
  });
  connect(panel_, &DetailsPanel::Left, this, [this] { window_.View().setFocus(); });
  PutRight(Stored(kPlace) == kRight);
}

void DetailsPane::PutRight(bool right) {
  panes_->setOrientation(right ? Qt::Horizontal : Qt::Vertical);
  const int stored = QString::fromStdString(Stored(kSize)).toInt();
  const int share = stored > 0 && stored < 100 ? stored : kFirstShare;
  const int length = std::max(Length(*panes_), 100);
  panes_->setSizes({length * (100 - share) / 100, length * share / 100});
  panel_->Arrange(right ? Qt::Vertical : Qt::Horizontal);
}

void DetailsPane::Toggle(bool shown) {
  const bool isNew = shown && panel_ == nullptr;
  if (isNew) Make();
  if (panel_ == nullptr) return;
  const bool hadFocus = panel_->isAncestorOf(QApplication::focusWidget());
  if (!shown) StoreSize();
  panel_->setVisible(shown);
  if (hadFocus) window_.View().setFocus();
  Store(kShown, shown ? kTrue : kFalse);
  if (!shown) return;
  Follow(table_.RowSel());
  // When the table has its new size.
  QTimer::singleShot(0, this, [this] { window_.View().Reveal(table_.RowSel()); });
}

void DetailsPane::Open() {
  command_->setChecked(true);
  Toggle(true);
  panel_->Tree().setFocus();
}

void DetailsPane::Follow(int row) {
  if (panel_ == nullptr || panel_->isHidden()) return;
  auto trap = row > 0 ? TrapOf(table_, row) : nullptr;
  panel_->Show(trap ? std::make_shared<TrapDetails>(std::move(trap), names_, facts_) : nullptr);
}

void DetailsPane::StoreSize() {
  if (panel_ == nullptr || panel_->isHidden() || Length(*panes_) <= 0) return;
  Store(kSize, std::to_string(100 * panes_->sizes().value(1) / Length(*panes_)));
}

}  // namespace sentrel
