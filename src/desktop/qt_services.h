#pragma once

#include <QTimer>
#include <QWidget>
#include <chrono>
#include <ctime>
#include <functional>
#include <string>
#include <utility>

#include "common/coarse_clock.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/main_window.h"
#include "platform/message_box.h"
#include "platform/timer.h"

namespace sentrel {

class QtApplication : public Application {
 public:
  /// The layout folder is the program folder, or, where that cannot be written, the user's.
  explicit QtApplication(std::string userFolder) : userFolder_(std::move(userFolder)) {}
  std::string ProgramFolder() const override;
  std::string ExecutableName() const override;
  std::string LayoutFolder() const override;
  void SetHelpFile(const std::string& path) override { helpFile_ = path; }
  /// As last set; empty at first.
  const std::string& HelpFile() const { return helpFile_; }

 private:
  std::string userFolder_;
  std::string helpFile_;
};

class QtClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text, const std::string& html) override;
};

class QtFileSystem : public FileSystem {
 public:
  bool Exists(const std::string& path) const override;
  LocalTime CreatedAt(const std::string& path) const override;
  void Delete(const std::string& path) override;
};

/// Whether nobody may write to the file, or at least not this user. Root is kept out too.
bool IsReadOnly(const std::string& path);

/// What a dialog is to stand above: the dialog that is open, else the window; null if neither can
/// be seen.
QWidget* OwnerOfNextDialog(QWidget& window);

class QtMessageBox : public MessageBox {
 public:
  /// The box stands above whatever dialog is open, else above the window, which may be hidden and
  /// must outlive it.
  explicit QtMessageBox(QWidget& window) : window_(window) {}
  void Show(const std::string& text, MessageIcon icon, const std::string& title) override;

 private:
  QWidget& window_;
};

/// Shows the text of every message box as it stands and every character of it (VisibleText), also
/// of the toolkit's own, for as long as this lives: the name of a file in it may look like markup.
class PlainMessages : public QObject {
 public:
  PlainMessages();
  bool eventFilter(QObject* watched, QEvent* event) override;
};

/// Beginning a new interval is cheap: the toolkit's timer is left to run, and started again only
/// when it expires too early.
class QtTimer : public Timer {
 public:
  void Setup(std::chrono::milliseconds interval, std::function<void()> onExpiry) override;
  void SetEnabled(bool enabled) override;

 private:
  void OnTimeout();

  QTimer timer_;
  std::chrono::milliseconds interval_{};
  std::function<void()> onExpiry_;
  CoarseClock::time_point begun_;
  bool enabled_ = false;
};

/// Works out the local time once a second.
class SystemClock : public Clock {
 public:
  LocalTime Now() const override;

 private:
  mutable std::time_t second_ = -1;
  mutable LocalTime local_;
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
