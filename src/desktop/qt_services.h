#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/clock.h"
#include "platform/main_window.h"
#include "platform/message_box.h"
#include "platform/timer.h"

namespace sentrel {

class QtApplication : public Application {
 public:
  std::string ProgramFolder() const override;
  void SetHelpFile(const std::string& path) override { helpFile_ = path; }

 private:
  std::string helpFile_;
};

class QtMessageBox : public MessageBox {
 public:
  /// The box stands above the owner, which may be hidden and must outlive it.
  explicit QtMessageBox(QWidget& owner) : owner_(owner) {}
  void Show(const std::string& text, MessageIcon icon, const std::string& title) override;

 private:
  QWidget& owner_;
};

class QtTimer : public Timer {
 public:
  void Setup(std::chrono::milliseconds interval, std::function<void()> onExpiry) override;
  void SetEnabled(bool enabled) override;

 private:
  QTimer timer_;
};

class SystemClock : public Clock {
 public:
  LocalTime Now() const override;
};

/// Month names and AM/PM designators of the system's language.
class SystemLocale : public Locale {
 public:
  SystemLocale();
  const LocaleTexts& Texts() const override { return texts_; }

 private:
  LocaleTexts texts_;
};

}  // namespace sentrel
