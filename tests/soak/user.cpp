#include "user.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

namespace sentrel {
namespace {

constexpr int kMostActsInDialog = 30;

const std::vector<QString> kTyped = {"192.0.2.0/24",        "10.0.0.1-10.0.0.9", "public",
                                     "<b>bold</b>",         "255.255.255.256",   "",
                                     QString(300, u'x'),    "1.2.3.4",           "a|b::c=d",
                                     "\u202Eright to left", "no such filter"};
/// Names that are resolved without a name server.
const std::vector<QString> kTargets = {"127.0.0.1", "localhost", "", "300.1.1.1", "127.0.0.2"};
const std::vector<Qt::Key> kKeys = {Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Up,
                                    Qt::Key_Down, Qt::Key_Return,  Qt::Key_Delete};
const std::vector<Qt::Key> kTableKeys = {Qt::Key_Up,       Qt::Key_Down, Qt::Key_PageUp,
                                         Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};

template <typename Widget>
QList<Widget*> Usable(QWidget& parent) {
  QList<Widget*> usable;
  for (Widget* widget : parent.findChildren<Widget*>()) {
    if (widget->isVisible() && widget->isEnabled()) usable << widget;
  }
  return usable;
}

}  // namespace

User::User(QMainWindow& window, std::uint32_t seed) : window_(window), random_(seed) {}

void User::Act(const std::function<bool()>& done, const std::function<void()>& between) {
  done_ = done;
  between_ = between;
  const auto idle = [] {
    return !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
  };
  ArmNext();
  while (!done_() || armed_ || !idle()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

/// A call of its own for each act: a dialog that the act opens has to be used too.
void User::ArmNext() {
  armed_ = true;
  QTimer::singleShot(1, &window_, [this] { ActOnce(); });
}

void User::ActOnce() {
  armed_ = false;
  between_();
  QWidget* popup = QApplication::activePopupWidget();
  QWidget* dialog = QApplication::activeModalWidget();
  if (!done_() || popup || dialog) ArmNext();
  ++acts_;
  if (popup) return UsePopup(*popup);
  if (dialog) return UseDialog(*dialog);
  if (!done_()) UseWindow();
}

void User::UseWindow() {
  const std::uint32_t choice = Below(8);
  if (choice < 3) return UseTool();
  if (choice < 6) return UseTable();
  if (choice == 6) return UseHelp();
  window_.resize(static_cast<int>(Below(1800)), static_cast<int>(Below(1200)));
}

void User::UseTool() {
  const auto actions =
      window_.findChildren<QAction*>(QRegularExpression("^(Main|Edit|Export|Help):"));
  QAction* action = AnyOf(actions);
  const QString id = action->objectName();
  // Deleting rows as often as everything else would leave none.
  if (limits_.tools.contains(id) || ((id == "Edit:Clear" || id == "Edit:Cut") && Below(20) > 0))
    return;
  action->trigger();
}

void User::UseTable() {
  auto* table = window_.findChild<QAbstractScrollArea*>("Table");
  const Qt::KeyboardModifiers shift = Below(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
  if (Below(3) > 0) return QTest::keyClick(table, AnyOf(kTableKeys), shift);
  ClickAt(*table->viewport(), Below(4) == 0 ? Qt::RightButton : Qt::LeftButton);
}

void User::UseHelp() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() != "Help" || !widget->isVisible()) continue;
    if (Below(4) == 0) return void(widget->close());
    if (Below(3) > 0) {
      return QTest::keyClick(widget->findChild<QAbstractScrollArea*>(), AnyOf(kKeys));
    }
    auto* search = widget->findChild<QLineEdit*>("Search");
    search->setText(AnyOf(kTyped));
    return QTest::keyClick(search, Qt::Key_Return);
  }
  QTest::keyClick(window_.findChild<QWidget*>("Table"), Qt::Key_F1);
}

void User::UsePopup(QWidget& popup) {
  const std::vector<Qt::Key> keys = {Qt::Key_Escape, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return};
  auto* menu = qobject_cast<QMenu*>(&popup);
  const bool leave =
      menu && menu->activeAction() && limits_.tools.contains(menu->activeAction()->objectName());
  QTest::keyClick(&popup, leave ? Qt::Key_Escape : AnyOf(keys));
}

void User::UseDialog(QWidget& dialog) {
  if (&dialog != dialog_) {
    dialog_ = &dialog;
    actsInDialog_ = 0;
    ++dialogs_;
  }
  if (++actsInDialog_ > kMostActsInDialog || Below(12) == 0) {
    dialog_ = nullptr;
    dialog.close();
    return;
  }
  if (qobject_cast<QFileDialog*>(&dialog)) return UseFileDialog(dialog);
  const std::uint32_t choice = Below(4);
  if (choice == 0) return TypeInto(dialog);
  if (choice == 1) return QTest::keyClick(&dialog, AnyOf(kKeys));
  const auto buttons = Usable<QAbstractButton>(dialog);
  if (!buttons.isEmpty()) ClickAt(*AnyOf(buttons), Qt::LeftButton);
}

void User::UseFileDialog(QWidget& dialog) {
  auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
  if (!name || Below(4) == 0) return QTest::keyClick(&dialog, Qt::Key_Escape);
  name->setText(AnyOf(limits_.files));
  QTest::keyClick(name, Qt::Key_Return);
}

void User::TypeInto(QWidget& dialog) {
  const auto boxes = Usable<QLineEdit>(dialog);
  if (boxes.isEmpty()) return;
  QLineEdit* box = AnyOf(boxes);
  const auto* combo = qobject_cast<QComboBox*>(box->parentWidget());
  const bool target = combo && combo->objectName() == "Target";
  box->selectAll();
  const QString text = AnyOf(target ? kTargets : kTyped);
  const bool pasted = text.size() >= 30 || text != QString::fromLatin1(text.toLatin1());
  pasted ? box->insert(text) : QTest::keyClicks(box, text);
  if (Below(2) == 0) QTest::keyClick(box, Qt::Key_Return);
}

void User::ClickAt(QWidget& widget, Qt::MouseButton button) {
  if (widget.width() < 1 || widget.height() < 1) return;
  const QPoint place(static_cast<int>(Below(static_cast<std::size_t>(widget.width()))),
                     static_cast<int>(Below(static_cast<std::size_t>(widget.height()))));
  QTest::mouseClick(&widget, button, {}, place);
}

}  // namespace sentrel
