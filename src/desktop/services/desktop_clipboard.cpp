#include "desktop/services/desktop_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

namespace sentrel {

void DesktopClipboard::Clear() {
  QGuiApplication::clipboard()->clear();
}

void DesktopClipboard::SetText(const std::string& text, const std::string& html) {
  auto content = std::make_unique<QMimeData>();
  content->setText(QString::fromStdString(text));
  content->setHtml(QString::fromStdString(html));
  QGuiApplication::clipboard()->setMimeData(content.release());
}

}  // namespace sentrel
