#pragma once

#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "common/failure.h"
#include "platform/clock.h"
#include "platform/log_file.h"
#include "platform/main_window.h"
#include "platform/message_box.h"
#include "platform/snmp.h"
#include "platform/timer.h"
#include "platform/trap_writer.h"

namespace sentrel {

/// What was asked of the fakes, in order, and the one step that is to fail.
struct CallLog {
  std::vector<std::string> calls;
  std::string failing;

  void Note(const std::string& call) {
    calls.push_back(call);
    if (call == failing) throw Failure(call + " fails");
  }
};

/// A fake that notes its calls.
class Noting {
 public:
  explicit Noting(CallLog& log) : log_(log) {}

 protected:
  CallLog& log_;
};

class FakeClock : public Clock {
 public:
  LocalTime Now() const override { return now; }
  LocalTime now{2026, 12, 5, 15, 49, 37};
};

class FakeLocale : public Locale {
 public:
  const LocaleTexts& Texts() const override { return texts; }
  LocaleTexts texts;
};

/// Every letter is 7 wide and 10 high.
class FakeMainWindow : public MainWindow, protected Noting {
 public:
  using Noting::Noting;

  void SetEvents(MainWindowEvents& events) { events_ = &events; }
  void SetCaption(const std::string& text) override { caption = text; }
  void SetHelpContext(int number) override { helpContext = number; }
  int TextWidth(const std::string& text) const override {
    return 7 * static_cast<int>(text.size());
  }
  int TextHeight(const std::string&) const override { return textHeight; }
  int InnerWidth() const override { return inner.width; }
  int InnerHeight() const override { return inner.height; }
  int StatusBarHeight() const override { return 20; }
  void MoveTable(const Area& area) override {
    if (area.height < 0) throw Failure("too small");
    table = area;
  }
  void Show() override { log_.Note("Show"); }
  void Unload() override {
    log_.Note("Unload");
    events_->Form_Unload();
  }

  std::string caption;
  int helpContext = 0;
  int textHeight = 10;
  Area inner{0, 0, 800, 600};
  Area table;

 private:
  MainWindowEvents* events_ = nullptr;
};

class FakeSNMP : public SNMP, protected Noting {
 public:
  using Noting::Noting;

  std::int16_t StartListening() override {
    log_.Note("StartListening");
    return startResult;
  }
  ListenFailure WhyNotListening() const override { return {"The reason.", "The remedy."}; }
  void StopListening() override { log_.Note("StopListening"); }
  void CloseListener() override { log_.Note("CloseListener"); }

  std::string ResolveHost(const std::string& hostName) override {
    log_.Note("ResolveHost " + hostName);
    const auto found = hosts.find(hostName);
    return found == hosts.end() ? "" : found->second;
  }
  std::int16_t SendTrap(const std::string& target, const std::string& community,
                        const std::vector<std::string>& OIDs,
                        const std::vector<std::string>& Values,
                        const std::vector<std::int16_t>& DataTypes) override {
    log_.Note("SendTrap " + target + " " + community);
    sentOids = OIDs;
    sentValues = Values;
    sentTypes = DataTypes;
    return sendResult;
  }
  std::string StatusText() const override { return statusText; }
  std::string LocalText1() const override { return "noc"; }
  std::string LocalText2() const override { return "Linux"; }

  std::int16_t startResult = 0;
  std::map<std::string, std::string> hosts;
  std::int16_t sendResult = 0;
  std::string statusText = "OK";
  std::vector<std::string> sentOids;
  std::vector<std::string> sentValues;
  std::vector<std::int16_t> sentTypes;
};

class FakeMessageBox : public MessageBox, protected Noting {
 public:
  using Noting::Noting;
  void Show(const std::string& message, MessageIcon messageIcon,
            const std::string& boxTitle) override {
    log_.Note("MessageBox");
    text = message;
    icon = messageIcon;
    title = boxTitle;
  }
  std::tuple<std::string, std::string, MessageIcon> Shown() const { return {title, text, icon}; }

  std::string text;
  std::string title;
  MessageIcon icon = MessageIcon::Exclamation;
};

/// A timer whose time passes when the test says so.
class FakeTimer : public Timer {
 public:
  void Setup(std::chrono::milliseconds every, std::function<void()> onExpiry) override {
    interval = every;
    onExpiry_ = std::move(onExpiry);
  }
  void SetEnabled(bool on) override {
    if (on && !enabled) elapsed_ = std::chrono::milliseconds{0};
    enabled = on;
    if (on) ++starts;
  }
  void Pass(std::chrono::milliseconds time) {
    elapsed_ += time;
    while (enabled && elapsed_ >= interval) {
      elapsed_ -= interval;
      onExpiry_();
    }
  }

  std::chrono::milliseconds interval{0};
  bool enabled = false;
  int starts = 0;

 private:
  std::function<void()> onExpiry_;
  std::chrono::milliseconds elapsed_{0};
};

/// Log files in memory, by path. An empty path cannot be opened. The home folder is /home/ann.
class FakeLogFile : public LogFile {
 public:
  bool failing = false;
  std::map<std::string, std::string> contents;
  /// By path.
  std::map<std::string, std::string> obstacles;

  std::string WholePath(const std::string& name) const override {
    return name.starts_with('~') ? "/home/ann" + name.substr(1) : name;
  }
  std::string Obstacle(const std::string& path) const override {
    const auto found = obstacles.find(path);
    return found == obstacles.end() ? "" : found->second;
  }
  void Append(const std::string& path, std::string_view entry) override {
    if (failing || path.empty()) throw Failure("The log cannot be written.");
    contents[path].append(entry);
  }
};

/// Saved traps in memory, by file name. An empty name cannot be written.
class FakeTrapWriter : public TrapWriter {
 public:
  void Write(const std::string& fileName, const SavedTrap& trap) override {
    if (fileName.empty()) throw Failure("The file cannot be written.");
    files[fileName] = trap;
  }
  std::map<std::string, SavedTrap> files;
};

class FakeApplication : public Application {
 public:
  std::string ProgramFolder() const override { return "/opt/sentrel"; }
  std::string ExecutableName() const override { return "Sentrel"; }
  std::string LayoutFolder() const override { return "/opt/sentrel"; }
  void SetHelpFile(const std::string& path) override { helpFile = path; }
  std::string helpFile;
};

}  // namespace sentrel
