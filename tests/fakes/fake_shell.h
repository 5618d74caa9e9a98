#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "common/failure.h"
#include "fakes/fake_console.h"
#include "platform/about_dialog.h"
#include "platform/browser.h"
#include "platform/tip_dialog.h"
#include "platform/version_reader.h"

namespace sentrel {

/// Makes dialogs and browsers that note what is asked of them. Making one is noted too.
template <typename Made, typename Factory>
class FakeFactory : public Factory, protected Noting {
 public:
  using Noting::Noting;
  auto Create() -> decltype(std::declval<Factory&>().Create()) override {
    log_.Note("Create");
    return std::make_unique<Made>(log_);
  }
};

class FakeBrowser : public Browser, protected Noting {
 public:
  using Noting::Noting;
  void Browse(const std::string& address) override { log_.Note("Browse " + address); }
};
using FakeBrowserFactory = FakeFactory<FakeBrowser, BrowserFactory>;

class FakeAboutDialog : public AboutDialog, protected Noting {
 public:
  using Noting::Noting;
  void SetProgramName(const std::string& text) override { log_.Note("ProgramName " + text); }
  void SetPackageName(const std::string& text) override { log_.Note("PackageName " + text); }
  void SetPackage(const std::string& text) override { log_.Note("Package " + text); }
  void SetSubTitle(const std::string& text) override { log_.Note("SubTitle " + text); }
  void SetVersionInfo(const std::string& text) override { log_.Note("VersionInfo " + text); }
  void SetProgIcon(const Icon& icon) override { log_.Note("ProgIcon " + icon.name); }
  void Show() override { log_.Note("Show"); }
};
using FakeAboutDialogFactory = FakeFactory<FakeAboutDialog, AboutDialogFactory>;

class FakeTipDialog : public TipDialog, protected Noting {
 public:
  using Noting::Noting;
  void SetProgramName(const std::string& text) override { log_.Note("ProgramName " + text); }
  void SetPath(const std::string& folder) override { log_.Note("Path " + folder); }
  void Show(const std::string& tipSet) override { log_.Note("Show " + tipSet); }
};
using FakeTipDialogFactory = FakeFactory<FakeTipDialog, TipDialogFactory>;

/// Files that are nothing but their versions.
class FakeVersionReader : public VersionReader {
 public:
  std::optional<VersionRecord> ReadVersion(const std::string& file) const override {
    const auto found = versions.find(file);
    return found == versions.end() ? std::nullopt : std::optional(found->second);
  }
  std::string ReadLegalNotice(const std::string& file) const override {
    return versions.contains(file) ? "Free for all." : "";
  }
  LocalTime WrittenAt(const std::string&) const override {
    if (datesFail) throw Failure("There is no date.");
    return written;
  }

  std::map<std::string, VersionRecord> versions;
  LocalTime written{2007, 5, 31, 12, 0, 0};
  bool datesFail = false;
};

}  // namespace sentrel
