#include "dialogs.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDebug>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace sentrel {
namespace {

constexpr int kInterval = 5;      // milliseconds between looks
constexpr int kMostLooks = 1000;  // then the window is not coming

QWidget* FindWindow(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool wanted = window->objectName() == name || window->inherits(qPrintable(name));
    if (window->isVisible() && wanted) return window;
  }
  return nullptr;
}

/// The dialog takes typed names only while the edit has the focus.
void Focus(QWidget& dialog, QWidget& edit) {
  dialog.activateWindow();
  edit.setFocus();
  EXPECT_TRUE(QTest::qWaitFor([&] { return edit.hasFocus(); }));
}

/// So that a test that went wrong ends.
void CloseDialogs() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* dialog = qobject_cast<QDialog*>(window)) {
      qWarning() << "open:" << dialog->objectName() << dialog->windowTitle();
      dialog->reject();
    }
  }
}

}  // namespace

User::User() {
  LookAgain();
}

User::~User() {
  EXPECT_FALSE(gaveUp_) << "the expected window did not come";
  EXPECT_TRUE(steps_.empty());
}

void User::When(const QString& window, std::function<void(QWidget&)> act) {
  steps_.push_back({window, std::move(act)});
}

void User::Accept(const QString& window) {
  When(window, [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
}

void User::Escape(const QString& window) {
  When(window, [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

void User::NameFile(const QString& path, const QString& window) {
  When(window, [path](QWidget& dialog) {
    auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(edit, nullptr);
    Focus(dialog, *edit);
    edit->selectAll();
    QTest::keyClicks(edit, path);
    QTest::keyClick(edit, Qt::Key_Return);
  });
}

void User::Press(const QString& window, const QString& button) {
  When(window, [button](QWidget& dialog) {
    for (auto* candidate : dialog.findChildren<QAbstractButton*>()) {
      if (QString(candidate->text()).remove('&').startsWith(button)) {
        QTest::mouseClick(candidate, Qt::LeftButton);
        return;
      }
    }
    ADD_FAILURE() << "no button " << button.toStdString();
  });
}

/// A timer of its own for each look: one that is busy in a dialog does not fire.
void User::LookAgain() {
  QTimer::singleShot(kInterval, &timers_, [this] {
    LookAgain();
    Look();
  });
}

void User::Look() {
  if (gaveUp_) return CloseDialogs();
  QWidget* window = steps_.empty() ? nullptr : FindWindow(steps_.front().window);
  if (window) {
    const auto act = std::move(steps_.front().act);
    steps_.pop_front();
    looks_ = 0;
    ++acting_;
    act(*window);
    --acting_;
  } else if (steps_.empty() && (acting_ > 0 || !QApplication::activeModalWidget())) {
    looks_ = 0;
  } else if (++looks_ > kMostLooks) {
    gaveUp_ = true;
  }
}

}  // namespace sentrel
