#include "desktop/qt_services.h"

#include <QCoreApplication>
#include <QLocale>
#include <QMessageBox>
#include <ctime>

namespace sentrel {

std::string QtApplication::ProgramFolder() const {
  return QCoreApplication::applicationDirPath().toStdString();
}

void QtMessageBox::Show(const std::string& text, MessageIcon icon, const std::string& title) {
  QWidget* owner = owner_.isVisible() ? &owner_ : nullptr;
  QMessageBox box(icon == MessageIcon::CriticalStop ? QMessageBox::Critical : QMessageBox::Warning,
                  QString::fromStdString(title), QString::fromStdString(text).replace("\r\n", "\n"),
                  QMessageBox::Ok, owner);
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

void QtTimer::Setup(std::chrono::milliseconds interval, std::function<void()> onExpiry) {
  timer_.setInterval(interval);
  QObject::connect(&timer_, &QTimer::timeout, std::move(onExpiry));
}

void QtTimer::SetEnabled(bool enabled) {
  if (enabled) {
    timer_.start();
  } else {
    timer_.stop();
  }
}

LocalTime SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

SystemLocale::SystemLocale() {
  const QLocale locale = QLocale::system();
  for (int month = 1; month <= 12; ++month) {
    QString name = locale.monthName(month, QLocale::ShortFormat);
    if (name.endsWith('.')) name.chop(1);
    if (!name.isEmpty()) texts_.months[static_cast<size_t>(month - 1)] = name.toStdString();
  }
  texts_.am = locale.amText().toStdString();
  texts_.pm = locale.pmText().toStdString();
}

}  // namespace sentrel
