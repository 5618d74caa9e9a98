#pragma once

#include <QWidget>

#include "platform/about_dialog.h"

namespace sentrel {

/// Makes about boxes that stand above the owner, which must outlive them. Icons are named by their
/// resource.
class QtAboutDialogFactory : public AboutDialogFactory {
 public:
  explicit QtAboutDialogFactory(QWidget& owner) : owner_(owner) {}
  std::unique_ptr<AboutDialog> Create() override;

 private:
  QWidget& owner_;
};

}  // namespace sentrel
