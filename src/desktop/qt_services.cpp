#include "desktop/qt_services.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QMessageBox>
#include <QMimeData>
#include <ctime>
#include <memory>

#include "common/failure.h"
#include "common/visible_text.h"

namespace sentrel {

std::string QtApplication::ProgramFolder() const {
  return QCoreApplication::applicationDirPath().toStdString();
}

std::string QtApplication::ExecutableName() const {
  return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName().toStdString();
}

std::string QtApplication::LayoutFolder() const {
  const bool writable = QFileInfo(QCoreApplication::applicationDirPath()).isWritable();
  return writable ? ProgramFolder() : userFolder_;
}

void QtClipboard::Clear() {
  QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetText(const std::string& text, const std::string& html) {
  auto content = std::make_unique<QMimeData>();
  content->setText(QString::fromStdString(text));
  content->setHtml(QString::fromStdString(html));
  QGuiApplication::clipboard()->setMimeData(content.release());
}

bool QtFileSystem::Exists(const std::string& path) const {
  return QFileInfo::exists(QString::fromStdString(path));
}

LocalTime QtFileSystem::CreatedAt(const std::string& path) const {
  const QFileInfo file(QString::fromStdString(path));
  const QDateTime born = file.birthTime();
  const QDateTime created = born.isValid() ? born : file.lastModified();
  if (!created.isValid()) throw Failure("There is no date of the file " + path + ".");
  const QDate date = created.date();
  const QTime time = created.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

void QtFileSystem::Delete(const std::string& path) {
  if (IsReadOnly(path) || !QFile::remove(QString::fromStdString(path))) {
    throw Failure("The file " + path + " cannot be deleted.");
  }
}

bool IsReadOnly(const std::string& path) {
  constexpr auto anyone = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
  const QFileInfo file(QString::fromStdString(path));
  return file.exists() && (!(file.permissions() & anyone) || !file.isWritable());
}

QWidget* OwnerOfNextDialog(QWidget& window) {
  if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
  return window.isVisible() ? &window : nullptr;
}

void QtMessageBox::Show(const std::string& text, MessageIcon icon, const std::string& title) {
  QMessageBox box(icon == MessageIcon::CriticalStop ? QMessageBox::Critical : QMessageBox::Warning,
                  QString::fromStdString(title),
                  QString::fromStdString(text).replace("\r\n", "\n").replace('\r', '\n'),
                  QMessageBox::Ok, OwnerOfNextDialog(window_));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

void QtTimer::Setup(std::chrono::milliseconds interval, std::function<void()> onExpiry) {
  interval_ = interval;
  onExpiry_ = std::move(onExpiry);
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, [this] { OnTimeout(); });
}

void QtTimer::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (!enabled) return;
  begun_ = CoarseClock::now();
  if (!timer_.isActive()) timer_.start(interval_);
}

void QtTimer::OnTimeout() {
  using std::chrono::milliseconds;
  if (!enabled_) return;
  const auto elapsed = CoarseClock::now() - begun_;
  const auto rest = std::chrono::ceil<milliseconds>(interval_ - elapsed);
  if (rest > milliseconds::zero()) return timer_.start(rest);
  SetEnabled(true);
  onExpiry_();
}

LocalTime SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  if (now == second_) return local_;
  std::tm local{};
  localtime_r(&now, &local);
  second_ = now;
  local_ = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
  return local_;
}

SystemLocale::SystemLocale() {
  const QLocale locale = QLocale::system();
  for (int month = 1; month <= 12; ++month) {
    QString name = locale.monthName(month, QLocale::ShortFormat);
    if (name.endsWith('.')) name.chop(1);
    const auto place = static_cast<size_t>(month - 1);
    if (!name.isEmpty()) texts_.months[place] = name.toStdString();
    const QString fullName = locale.standaloneMonthName(month, QLocale::LongFormat);
    if (!fullName.isEmpty()) texts_.fullMonths[place] = fullName.toStdString();
  }
  texts_.am = locale.amText().toStdString();
  texts_.pm = locale.pmText().toStdString();
}

}  // namespace sentrel
