#pragma once

#include <map>
#include <string>

#include "common/failure.h"
#include "controls/tool_bars.h"
#include "fakes/fake_console.h"
#include "platform/clipboard.h"
#include "platform/file_system.h"

namespace sentrel {

class FakeToolBarsView : public ToolBarsView, protected Noting {
 public:
  using Noting::Noting;
  void StateChanged(const Tool&) override {}
  void PopupMenu(const Tool& submenu) override {
    log_.Note("PopupMenu " + std::string(submenu.Id()));
  }
  void SaveLayout(const std::string& path) override { log_.Note("SaveLayout " + path); }
  void LoadLayout(const std::string& path) override { log_.Note("LoadLayout " + path); }
  void SetHintTime(std::chrono::milliseconds time) override {
    log_.Note("SetHintTime " + std::to_string(time.count()));
  }
};

class FakeClipboard : public Clipboard {
 public:
  void Clear() override { Put("", ""); }
  void SetText(const std::string& newText, const std::string& newHtml) override {
    Put(newText, newHtml);
  }

  std::string text = "from another program";
  std::string html;
  bool reachable = true;

 private:
  void Put(const std::string& newText, const std::string& newHtml) {
    if (!reachable) throw Failure("The clipboard cannot be reached.");
    text = newText;
    html = newHtml;
  }
};

/// Files that are nothing but a date.
class FakeFileSystem : public FileSystem {
 public:
  struct File {
    LocalTime created;
    bool readOnly = false;
  };

  bool Exists(const std::string& path) const override { return files.contains(path); }
  LocalTime CreatedAt(const std::string& path) const override {
    if (datesFail || !files.contains(path)) throw Failure("There is no date of " + path);
    return files.at(path).created;
  }
  void Delete(const std::string& path) override {
    if (!files.contains(path) || files.at(path).readOnly) throw Failure("Cannot delete " + path);
    files.erase(path);
  }

  std::map<std::string, File> files;
  bool datesFail = false;
};

}  // namespace sentrel
