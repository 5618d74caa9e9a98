#include "desktop/window/menus_and_toolbar.h"

#include <QCursor>
#include <QMenuBar>
#include <QScreen>
#include <QToolButton>

#include "common/failure.h"
#include "desktop/window/icons.h"
#include "desktop/window/layout_file.h"

namespace sentrel {
namespace {

constexpr QSize kToolbarIconSize{16, 16};

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A window that cannot be seen could not be moved back either.
void BringIntoView(QWidget& window) {
  const QRect room = window.screen()->availableGeometry();
  if (room.intersects(window.geometry())) return;
  const QSize size = window.size().expandedTo(window.minimumSizeHint()).boundedTo(room.size());
  window.setGeometry(QRect(room.topLeft(), size));
}

}  // namespace

MenusAndToolbar::MenusAndToolbar(ToolBars& toolBars, QMainWindow& window)
    : QObject(&window), toolBars_(toolBars), window_(window) {
  for (Tool& tool : toolBars_.Tools()) AddAction(tool);
  for (const ToolList& menu : AllMenus()) Fill(*ActionOf(menu.name).menu(), menu);
  for (const ToolList& band : AllBands()) {
    if (band.name == "MenuBar") {
      Fill(*window_.menuBar(), band);
    } else {
      AddToolBar(band);
    }
  }
  toolBars_.SetView(this);
}

MenusAndToolbar::~MenusAndToolbar() {
  toolBars_.SetView(nullptr);
}

void MenusAndToolbar::AddAction(Tool& tool) {
  const ToolDesign& design = tool.Design();
  QAction* action = nullptr;
  if (design.kind == ToolKind::Submenu) {
    auto* menu = new QMenu(Text(design.caption), &window_);
    menu->setToolTipsVisible(true);
    action = menu->menuAction();
  } else {
    action = new QAction(Text(design.caption), this);
    connect(action, &QAction::triggered, this, [this, &tool] { toolBars_.Choose(tool); });
  }
  action->setObjectName(Text(design.id));
  action->setMenuRole(QAction::NoRole);
  action->setIcon(ToolIcon(design.id));
  action->setToolTip(Text(design.hint));
  if (design.kind == ToolKind::Check) {
    action->setCheckable(true);
    action->setChecked(tool.State() != 0);
    action->setIconVisibleInMenu(false);  // the check mark stands there
  }
  actions_[design.id] = action;
}

void MenusAndToolbar::AddToolBar(const ToolList& band) {
  QToolBar* toolBar = window_.addToolBar(tr("Toolbar"));
  toolBar->setObjectName(Text(band.name));
  toolBar->setIconSize(kToolbarIconSize);
  toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  for (const ToolPlace& place : band.places) {
    if (place.caption.empty()) continue;
    ActionOf(place.tool).setIconText(Text(place.caption).remove('&'));
  }
  Fill(*toolBar, band);
}

void MenusAndToolbar::Fill(QWidget& widget, const ToolList& list) {
  for (const ToolPlace& place : list.places) {
    if (!place.tool.empty()) {
      widget.addAction(&ActionOf(place.tool));
      continue;
    }
    auto* separator = new QAction(&widget);
    separator->setSeparator(true);
    widget.addAction(separator);
  }
}

void MenusAndToolbar::StateChanged(const Tool& tool) {
  ActionOf(tool.Id()).setChecked(tool.State() != 0);
}

void MenusAndToolbar::PopupMenu(const Tool& submenu) {
  ActionOf(submenu.Id()).menu()->popup(popupPlace_.value_or(QCursor::pos()));
}

void MenusAndToolbar::SaveLayout(const std::string& path) {
  // A window that was never shown has no place of its own yet.
  const QByteArray geometry = window_.isVisible() ? window_.saveGeometry() : loadedGeometry_;
  WriteLayout(QString::fromStdString(path), {geometry, window_.saveState()});
}

void MenusAndToolbar::LoadLayout(const std::string& path) {
  const WindowLayout layout = ReadLayout(QString::fromStdString(path));
  window_.restoreState(layout.bands);
  if (window_.restoreGeometry(layout.window)) loadedGeometry_ = layout.window;
  BringIntoView(window_);
}

void MenusAndToolbar::SetHintTime(std::chrono::milliseconds time) {
  for (auto* button : window_.findChildren<QToolButton*>()) {
    button->setToolTipDuration(static_cast<int>(time.count()));
  }
}

}  // namespace sentrel
