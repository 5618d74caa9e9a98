#pragma once

#include <QObject>
#include <QWidget>
#include <memory>

#include "desktop/help/help_window.h"
#include "platform/browser.h"

namespace sentrel {

/// Makes browsers that show pages of this machine in the one help window, which closes with the
/// main window.
class HelpBrowserFactory : public QObject, public BrowserFactory {
  Q_OBJECT
 public:
  /// The main window must outlive the factory.
  explicit HelpBrowserFactory(QWidget& mainWindow);
  std::unique_ptr<Browser> Create() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Made when it is first asked for.
  std::unique_ptr<HelpWindow> window_;
};

}  // namespace sentrel
