#include "desktop/help/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVariant>
#include <QWidget>
#include <utility>

namespace sentrel {
namespace {

bool IsHelpKey(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return (key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier) ||
         key.key() == Qt::Key_Help;
}

/// The widget, or the one that it belongs to, that has a help context number; null if none has.
const QWidget* WindowWithHelp(const QWidget* widget) {
  while (widget != nullptr && !widget->property("helpContext").isValid()) {
    widget = widget->parentWidget();
  }
  return widget;
}

}  // namespace

HelpKey::HelpKey(OnPress onPress) : onPress_(std::move(onPress)) {
  QApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || !IsHelpKey(*event)) return false;
  const QWidget* window = WindowWithHelp(widget);
  if (window == nullptr) return false;
  onPress_(window->property("helpContext").toInt(),
           window->property("helpTopic").toString().toStdString());
  return true;
}

}  // namespace sentrel
