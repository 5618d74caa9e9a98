#include "desktop/help/help_browser.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVariant>
#include <utility>

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

bool IsHelpKey(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return (key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier) ||
         key.key() == Qt::Key_Help;
}

/// Invalid where neither the widget nor one that it belongs to has a number.
QVariant HelpContextOf(const QWidget* widget) {
  QVariant context;
  for (; widget != nullptr && !context.isValid(); widget = widget->parentWidget()) {
    context = widget->property("helpContext");
  }
  return context;
}

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

HelpKey::HelpKey(std::function<void(int context)> onPress) : onPress_(std::move(onPress)) {
  QApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || !IsHelpKey(*event)) return false;
  const QVariant context = HelpContextOf(widget);
  if (!context.isValid()) return false;
  onPress_(context.toInt());
  return true;
}

}  // namespace sentrel
