#include "desktop/qt_auto_combo.h"

#include <QCompleter>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStringList>

namespace sentrel {

QtAutoCombo::QtAutoCombo(AutoCombo& combo, QWidget* parent) : QComboBox(parent), combo_(combo) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  // Else the toolkit would put an entry in the place of a text that differs by its case only.
  completer()->setCaseSensitivity(Qt::CaseSensitive);
  combo_.SetObserver([this] { ShowState(); });
  ShowState();
  connect(this, &QComboBox::editTextChanged, this,
          [this](const QString& text) { combo_.SetText(text.toStdString()); });
}

QtAutoCombo::~QtAutoCombo() {
  combo_.SetObserver(nullptr);
}

void QtAutoCombo::ShowState() {
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
