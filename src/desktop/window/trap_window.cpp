#include "desktop/window/trap_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QStatusBar>
#include <QVBoxLayout>

#include "common/failure.h"
#include "desktop/window/icons.h"

/// The linker leaves out the resources of a static library unless they are asked for, from outside
/// any namespace.
static void LoadResources() {
  Q_INIT_RESOURCE(desktop);
}

namespace sentrel {
namespace {

constexpr int kStatusMargin = 4;
constexpr int kNoShift = 0;

}  // namespace

TrapWindow::TrapWindow(Table& table, ToolBars& toolBars, StatusBar& status)
    : table_(table),
      status_(status),
      inner_(new QWidget(this)),
      view_(new TableView(table, inner_)) {
  LoadResources();
  tools_ = new MenusAndToolbar(toolBars, *this);
  setObjectName("MainForm");
  QApplication::setWindowIcon(ProgramIcon());
  setCentralWidget(inner_);
  inner_->installEventFilter(this);
  statusBar()->setObjectName("StatusBar");
  auto* statusText = new QLabel;
  statusText->setTextFormat(Qt::PlainText);
  statusText->setContentsMargins(kStatusMargin, 0, 0, 0);
  statusBar()->addWidget(statusText, 1);
  status_.SetObserver([this] { ShowStatus(); });
  connect(view_, &TableView::MenuKeyPressed, this, &TrapWindow::PressRightButtonAt);
  ResizeOnScreen(*this, {1100, 640});
  view_->setFocus();
}

TrapWindow::~TrapWindow() {
  status_.SetObserver(nullptr);
}

void TrapWindow::ShowAbove(QWidget& widget) {
  auto* column = new QWidget;
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(&widget);
  layout->addWidget(takeCentralWidget(), 1);
  setCentralWidget(column);
  view_->setFocus();
}

QSplitter& TrapWindow::ShowBeside(QWidget& widget) {
  const bool hadFocus = view_->hasFocus();
  auto* panes = new QSplitter;
  panes->setObjectName("Panes");
  panes->setChildrenCollapsible(false);
  panes->addWidget(takeCentralWidget());
  panes->addWidget(&widget);
  setCentralWidget(panes);
  if (hadFocus) view_->setFocus();
  return *panes;
}

void TrapWindow::ShowStatus() {
  statusBar()->findChild<QLabel*>()->setText(QString::fromStdString(status_.Text()));
}

void TrapWindow::PressRightButtonAt(const QPoint& place) {
  tools_->SetPopupPlace(view_->viewport()->mapToGlobal(place));
  table_.MouseDown(kRightButton, kNoShift, place.x(), place.y());
  tools_->SetPopupPlace(std::nullopt);
}

void TrapWindow::SetCaption(const std::string& caption) {
  setWindowTitle(QString::fromStdString(caption));
}

void TrapWindow::SetHelpContext(int number) {
  setProperty("helpContext", number);
}

int TrapWindow::TextWidth(const std::string& text) const {
  return fontMetrics().horizontalAdvance(QString::fromStdString(text));
}

int TrapWindow::TextHeight(const std::string&) const {
  return fontMetrics().height();
}

int TrapWindow::InnerWidth() const {
  return inner_->width();
}

int TrapWindow::InnerHeight() const {
  return inner_->height() + StatusBarHeight();
}

int TrapWindow::StatusBarHeight() const {
  return statusBar()->height();
}

void TrapWindow::MoveTable(const Area& area) {
  if (area.width < 0 || area.height < 0) throw Failure("The window has no room for the table.");
  view_->setGeometry(area.left, area.top, area.width, area.height);
}

void TrapWindow::Show() {
  show();
}

void TrapWindow::Unload() {
  if (!unloaded_) {
    unloaded_ = true;
    if (events_) events_->Form_Unload();
  }
  hide();
  QApplication::quit();
}

void TrapWindow::closeEvent(QCloseEvent* event) {
  Unload();
  event->accept();
}

bool TrapWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == inner_ && event->type() == QEvent::Resize && events_) events_->Form_Resize();
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace sentrel
