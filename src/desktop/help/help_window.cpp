#include "desktop/help/help_window.h"

#include <QAction>
#include <QApplication>
#include <QPrinter>
#include <QShortcut>
#include <QToolBar>
#include <QWindow>

#include "desktop/export/print_job.h"
#include "desktop/help/document_pages.h"
#include "desktop/services/desktop_message_box.h"
#include "desktop/window/icons.h"
#include "desktop/window/window_place.h"

namespace sentrel {
namespace {

constexpr int kSearchWidth = 240;
constexpr const char* kContents = "default.htm";
constexpr const char* kTitle = "Sentrel Help";

/// Where a modal dialog is open, only a window that belongs to it can be used.
void BelongToModalDialog(QWidget& window) {
  const QWidget* modal = QApplication::activeModalWidget();
  window.winId();
  window.windowHandle()->setTransientParent(modal ? modal->windowHandle() : nullptr);
}

}  // namespace

HelpWindow::HelpWindow() : view_(new HelpView(this)), search_(new QLineEdit(this)) {
  setObjectName("Help");
  setCentralWidget(view_);
  AddTools();
  connect(view_, &QTextBrowser::sourceChanged, this, &HelpWindow::PageChanged);
  connect(search_, &QLineEdit::returnPressed, this, &HelpWindow::SearchEntered);
  ResizeOnScreen(*this, {860, 680});
}

QAction* HelpWindow::AddTool(const char* name, const char* iconId, const QString& caption,
                             const QKeySequence& keys) {
  auto* action = new QAction(ToolIcon(iconId), caption, this);
  action->setObjectName(name);
  action->setShortcut(keys);
  action->setToolTip(QString("%1 (%2)").arg(caption, keys.toString(QKeySequence::NativeText)));
  findChild<QToolBar*>()->addAction(action);
  return action;
}

void HelpWindow::AddTools() {
  auto* bar = addToolBar("Help");
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  QAction* back = AddTool("Back", "Page:Back", "Back", QKeySequence::Back);
  QAction* forward = AddTool("Forward", "Page:Forward", "Forward", QKeySequence::Forward);
  QAction* contents = AddTool("Contents", "Help:Contents", "Contents", QKeySequence("Alt+Home"));
  QAction* print = AddTool("Print", "Main:Print", "Print", QKeySequence::Print);
  for (QAction* action : {back, forward}) action->setEnabled(false);
  connect(back, &QAction::triggered, view_, &QTextBrowser::backward);
  connect(forward, &QAction::triggered, view_, &QTextBrowser::forward);
  connect(view_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(view_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  connect(contents, &QAction::triggered, this,
          [this] { ShowPage(QUrl::fromLocalFile(view_->Folder() + "/" + kContents)); });
  connect(print, &QAction::triggered, this, &HelpWindow::Print);

  auto* room = new QWidget;
  room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(room);
  search_->setObjectName("Search");
  search_->setAccessibleName("Search all pages");
  search_->setPlaceholderText("Search all pages");
  search_->setClearButtonEnabled(true);
  search_->setMaximumWidth(kSearchWidth);
  bar->addWidget(search_);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search_, [this] {
    search_->setFocus();
    search_->selectAll();
  });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

void HelpWindow::ShowPage(const QUrl& page) {
  search_->clear();
  view_->ShowPage(page);
  BelongToModalDialog(*this);
  show();
  raise();
  activateWindow();
  view_->setFocus();
}

void HelpWindow::SearchEntered() {
  const QString words = search_->text().simplified();
  if (words.isEmpty()) {
    view_->Mark("");
  } else {
    view_->ShowHits(words);
  }
}

void HelpWindow::PageChanged(const QUrl& page) {
  const QString title = view_->documentTitle();
  setWindowTitle(title == kTitle ? title : title + " - " + kTitle);
  view_->Mark(page.isLocalFile() ? search_->text() : QString());
}

void HelpWindow::Print() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(windowTitle());
  printer.setPageMargins(kPaperMargins, QPageLayout::Millimeter);
  const auto pagesFor = [this](const QPageLayout& paper, Progress&) {
    return std::make_shared<DocumentPages>(*view_->document(), paper);
  };
  const PrintJob job(this, pagesFor, {windowTitle().toStdString(), "Sentrel"});
  AskAndPrint(job, printer, this, "PrintHelp", [this](const std::string& failure) {
    DesktopMessageBox(*this).Show(failure, MessageIcon::Exclamation, "Sentrel");
  });
}

}  // namespace sentrel
