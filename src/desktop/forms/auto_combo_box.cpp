#include "desktop/forms/auto_combo_box.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStringList>

namespace sentrel {

AutoComboBox::AutoComboBox(AutoCombo& combo, QWidget* parent) : QComboBox(parent), combo_(combo) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  // Else the toolkit would put an entry in the place of a text that differs by its case only.
  completer()->setCaseSensitivity(Qt::CaseSensitive);
  completer()->popup()->installEventFilter(this);
  combo_.SetObserver([this] { ShowState(); });
  ShowState();
  connect(this, &QComboBox::editTextChanged, this,
          [this](const QString& text) { combo_.SetText(text.toStdString()); });
}

AutoComboBox::~AutoComboBox() {
  combo_.SetObserver(nullptr);
}

/// Enter means what was typed as long as no entry is chosen, and one Enter is enough.
bool AutoComboBox::eventFilter(QObject* watched, QEvent* event) {
  QAbstractItemView* const offered = completer() ? completer()->popup() : nullptr;
  if (watched != offered || event->type() != QEvent::KeyPress) {
    return QComboBox::eventFilter(watched, event);
  }
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (!enter || offered->currentIndex().isValid()) return false;
  offered->hide();
  QCoreApplication::sendEvent(lineEdit(), event);
  return true;
}

void AutoComboBox::ShowState() {
  QStringList shown;
  for (int i = 0; i < count(); ++i) shown << itemText(i);
  QStringList history;
  for (const std::string& text : combo_.History()) history << QString::fromStdString(text);
  const QString text = QString::fromStdString(combo_.Text());
  if (shown == history && currentText() == text) return;
  const QSignalBlocker quiet(this);
  if (shown != history) {
    clear();
    addItems(history);
  }
  setEditText(text);
}

}  // namespace sentrel
