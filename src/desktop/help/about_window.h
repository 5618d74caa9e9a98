#pragma once

#include <QWidget>

#include "platform/about_dialog.h"

namespace sentrel {

/// Makes about boxes that stand above the owner, which must outlive them. Icons are named by their
/// resource.
class AboutWindowFactory : public AboutDialogFactory {
 public:
  explicit AboutWindowFactory(QWidget& owner) : owner_(owner) {}
  std::unique_ptr<AboutDialog> Create() override;

 private:
  QWidget& owner_;
};

}  // namespace sentrel
