#include "desktop/window/menus_and_toolbar.h"

#include <QApplication>
#include <QCursor>
#include <QMenuBar>
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

}  // namespace

MenusAndToolbar::MenusAndToolbar(ToolBars& toolBars, QMainWindow& window)
    : QObject(&window), toolBars_(toolBars), window_(window), place_(window) {
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
    connect(
        action, &QAction::triggered, this, [this, &tool] { Choose(tool); }, Qt::QueuedConnection);
  }
  action->setObjectName(Text(design.id));
  action->setMenuRole(QAction::NoRole);
  action->setIcon(ToolIcon(design.id));
  action->setToolTip(Text(design.hint));
  if (design.kind == ToolKind::Check) {
    action->setCheckable(true);
    action->setChecked(tool.State() != 0);
    action->setIconVisibleInMenu(false);  // the check mark takes its place
  }
  actions_[design.id] = action;
}

void MenusAndToolbar::Choose(Tool& tool) {
  // A dialog keeps mouse and keys off the window, but not assistive technology.
  if (QApplication::activeModalWidget()) return StateChanged(tool);
  SetPopupPlace(PlaceUnderButton(ActionOf(tool.Id())));
  toolBars_.Choose(tool);
  SetPopupPlace(std::nullopt);
}

std::optional<QPoint> MenusAndToolbar::PlaceUnderButton(QAction& action) const {
  for (const auto* toolBar : window_.findChildren<QToolBar*>()) {
    const QWidget* button = toolBar->widgetForAction(&action);
    if (!button || !button->isVisible()) continue;
    if (button->rect().contains(button->mapFromGlobal(QCursor::pos()))) continue;
    return button->mapToGlobal(button->rect().bottomLeft());
  }
  return std::nullopt;
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
  WriteLayout(QString::fromStdString(path), {place_.Save(), window_.saveState()});
}

void MenusAndToolbar::LoadLayout(const std::string& path) {
  const WindowLayout layout = ReadLayout(QString::fromStdString(path));
  window_.restoreState(layout.bands);
  place_.Restore(layout.window);
}

void MenusAndToolbar::SetHintTime(std::chrono::milliseconds time) {
  for (auto* button : window_.findChildren<QToolButton*>()) {
    button->setToolTipDuration(static_cast<int>(time.count()));
  }
}

}  // namespace sentrel
