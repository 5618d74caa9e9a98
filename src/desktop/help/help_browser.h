#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
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

/// Turns the help key, pressed in any window, into a call with the help context number of that
/// window, or of the one it belongs to. One at a time.
class HelpKey : public QObject {
  Q_OBJECT
 public:
  explicit HelpKey(std::function<void(int context)> onPress);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void(int context)> onPress_;
};

}  // namespace sentrel
