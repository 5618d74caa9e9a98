#include "desktop/help/help_browser.h"

#include <QEvent>

#include "desktop/help/help_pages.h"

namespace sentrel {
namespace {

class HelpBrowser : public Browser {
 public:
  explicit HelpBrowser(HelpWindow& window) : window_(window) {}
  void Browse(const std::string& address) override { window_.ShowPage(HelpPageAt(address)); }

 private:
  HelpWindow& window_;
};

}  // namespace

HelpBrowserFactory::HelpBrowserFactory(QWidget& mainWindow) {
  mainWindow.installEventFilter(this);
}

std::unique_ptr<Browser> HelpBrowserFactory::Create() {
  if (!window_) window_ = std::make_unique<HelpWindow>();
  return std::make_unique<HelpBrowser>(*window_);
}

bool HelpBrowserFactory::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Hide && !event->spontaneous() && window_) window_->close();
  return QObject::eventFilter(watched, event);
}

}  // namespace sentrel
