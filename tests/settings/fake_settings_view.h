#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "settings/settings_view.h"

namespace sentrel {

/// The controls of the settings dialog in memory, by name.
class FakeSettingsView : public SettingsView {
 public:
  void SetHelpContext(int number) override { helpContext = number; }
  void SelectTab(int newTab) override { tab = newTab; }
  void Close() override { closed = true; }

  void SetVisible(SettingsControl control, bool visible) override {
    Put(control.name, !visible, hidden);
  }
  void SetEnabled(SettingsControl control, bool on) override { enabled[control.name] = on; }
  void SetFocus(SettingsControl control) override { focus = control.name; }

  bool Checked(SettingsCheck check) const override { return checked.contains(check.name); }
  void SetChecked(SettingsCheck check, bool on) override {
    if (Checked(check) == on) return;
    Put(check.name, on, checked);
    if (onClick.contains(check.name)) onClick.at(check.name)();
  }

  std::string Text(SettingsText box) const override { return texts[box.name]; }
  void SetText(SettingsText box, const std::string& text) override {
    texts[box.name] = shown(text);
  }
  void SelectText(SettingsText box) override { selectedText = box.name; }

  std::vector<std::string> Lines(SettingsList list) const override { return lines[list.name]; }
  void AddLine(SettingsList list, const std::string& line) override {
    lines[list.name].push_back(shown(line));
  }
  void RemoveLine(SettingsList list, std::size_t index) override {
    auto& all = lines.at(list.name);
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(index));
    selectedLine.erase(list.name);
  }
  void ClearLines(SettingsList list) override { lines[list.name].clear(); }
  std::optional<std::size_t> SelectedLine(SettingsList list) const override {
    return selectedLine[list.name];
  }

  int helpContext = 0;
  int tab = 0;
  bool closed = false;
  std::set<std::string> hidden;
  std::map<std::string, bool> enabled;
  std::string focus;
  std::set<std::string> checked;
  /// What a control makes of a text.
  std::function<std::string(std::string)> shown = [](std::string text) { return text; };
  /// What a click on a check box runs.
  std::map<std::string, std::function<void()>> onClick;
  mutable std::map<std::string, std::string> texts;
  std::string selectedText;
  mutable std::map<std::string, std::vector<std::string>> lines;
  mutable std::map<std::string, std::optional<std::size_t>> selectedLine;

 private:
  static void Put(const std::string& name, bool in, std::set<std::string>& names) {
    names.erase(name);
    if (in) names.insert(name);
  }
};

}  // namespace sentrel
