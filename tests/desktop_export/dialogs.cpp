#include "dialogs.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

namespace sentrel {
namespace {

constexpr int kInterval = 5;      // milliseconds between looks
constexpr int kMostLooks = 4000;  // then the window is not coming

QWidget* FindWindow(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == name) return window;
  }
  return nullptr;
}

}  // namespace

User::User() {
  QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
  timer_.start(kInterval);
}

User::~User() {
  EXPECT_TRUE(steps_.empty()) << "no window " << steps_.front().window.toStdString();
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

void User::NameFile(const QString& path) {
  When("ExportFile", [path](QWidget& dialog) {
    auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(edit, nullptr);
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

void User::Look() {
  if (steps_.empty()) return;
  if (QWidget* window = FindWindow(steps_.front().window)) {
    const auto act = std::move(steps_.front().act);
    steps_.pop_front();
    looks_ = 0;
    act(*window);
  } else if (++looks_ > kMostLooks) {
    ADD_FAILURE() << "no window " << steps_.front().window.toStdString();
    steps_.clear();
    for (QWidget* open : QApplication::topLevelWidgets()) open->close();
  }
}

}  // namespace sentrel
