#include "desktop/export/preview_window.h"

#include <QAction>
#include <QVBoxLayout>

#include "desktop/window/window_place.h"

namespace sentrel {
namespace {

constexpr double kZoomStep = 1.25;

}  // namespace

PreviewWindow::PreviewWindow(QWidget* owner, const QString& title)
    : QDialog(owner),
      view_(new PageView(this)),
      tools_(new QToolBar(this)),
      page_(new QSpinBox(this)),
      count_(new QLabel(this)) {
  setObjectName("PrintPreview");
  setWindowTitle(title + " - Print Preview");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  ResizeOnScreen(*this, {1000, 800});
  AddTools();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(tools_);
  layout->addWidget(view_);
  connect(page_, &QSpinBox::valueChanged, view_, &PageView::GoTo);
  // The view still tells of pages while this window is being destroyed.
  connect(view_, &PageView::CurrentPageChanged, page_, [page = page_](int number) {
    const QSignalBlocker blocker(page);
    page->setValue(number);
  });
  view_->setFocus();
}

void PreviewWindow::ShowPages(const std::shared_ptr<const PrintablePages>& pages) {
  {
    const QSignalBlocker blocker(page_);
    page_->setRange(1, pages->Count());
  }
  count_->setText(QString(" of %1 ").arg(pages->Count()));
  view_->ShowPages(pages);
}

void PreviewWindow::AddTools() {
  tools_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  AddTool("Print", "Print ...", QKeySequence::Print, [this] { emit PrintAsked(); });
  AddTool("PageSetup", "Page Setup ...", {}, [this] { emit PageSetupAsked(); });
  tools_->addSeparator();
  AddTool("FitWidth", "Fit Width", {}, [this] { view_->FitWidth(); });
  AddTool("FitPage", "Fit Page", {}, [this] { view_->FitPage(); });
  AddTool("ZoomIn", "Zoom In", QKeySequence::ZoomIn, [this] { view_->ZoomBy(kZoomStep); });
  AddTool("ZoomOut", "Zoom Out", QKeySequence::ZoomOut, [this] { view_->ZoomBy(1 / kZoomStep); });
  tools_->addSeparator();
  tools_->addWidget(new QLabel(" Page ", this));
  page_->setObjectName("Page");
  page_->setAccessibleName("Page");
  page_->setKeyboardTracking(false);
  count_->setObjectName("PageCount");
  tools_->addWidget(page_);
  tools_->addWidget(count_);
}

template <typename Act>
void PreviewWindow::AddTool(const char* name, const QString& text, const QKeySequence& key,
                            Act act) {
  QAction* action = tools_->addAction(text, this, act);
  action->setObjectName(name);
  action->setShortcut(key);
  tools_->widgetForAction(action)->setObjectName(name);
  tools_->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
}

}  // namespace sentrel
