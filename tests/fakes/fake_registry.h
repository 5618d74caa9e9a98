#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include "common/text.h"
#include "platform/registry.h"

namespace sentrel {

/// A registry in memory. Make another on the same contents to see what a next start would see.
class FakeRegistry : public Registry {
 public:
  using Values = std::map<std::string, std::string>;
  /// Keys by root and path, paths and value names in upper case.
  using Contents = std::map<std::pair<RegistryRoot, std::string>, Values>;

  /// Nothing can be opened, as in a store that cannot be reached.
  bool unreachable = false;
  /// Paths, in upper case, of keys that may be there but cannot be read.
  std::set<std::string> unreadable;
  /// Nothing can be made, written or removed.
  bool readOnly = false;
  /// Changes that reached the store; a batch is one.
  int changes = 0;
  Contents contents;

  std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override {
    if (!unreachable && !readOnly && !IsUnreachable(root, path))
      contents.try_emplace({root, UpperCase(path)});
    return OpenKey(root, path);
  }

  std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override {
    if (unreachable || IsUnreachable(root, path) || !contents.contains({root, UpperCase(path)}))
      return std::nullopt;
    open_.emplace(++lastKey_, std::pair(root, UpperCase(path)));
    return lastKey_;
  }

  bool CloseKey(RegistryKey key) override { return open_.erase(key) > 0; }

  std::optional<std::string> QueryStringValue(RegistryKey key, const std::string& name) override {
    const Values* values = ValuesOf(key);
    if (!values || !values->contains(UpperCase(name))) return std::nullopt;
    return values->at(UpperCase(name));
  }

  bool SetStringValue(RegistryKey key, const std::string& name, const std::string& text) override {
    Values* values = ValuesOf(key);
    if (!values || readOnly) return Fail();
    (*values)[UpperCase(name)] = text;
    CountChange();
    return true;
  }

  bool DeleteValue(RegistryKey key, const std::string& name) override {
    Values* values = ValuesOf(key);
    if (!values || !values->contains(UpperCase(name))) return false;
    if (readOnly) return Fail();
    values->erase(UpperCase(name));
    CountChange();
    return true;
  }

  void BeginBatch(RegistryBatch) override { inBatch_ = true; }
  bool EndBatch() override {
    inBatch_ = false;
    changes += batchChanged_ ? 1 : 0;
    batchChanged_ = false;
    return !std::exchange(batchFailed_, false);
  }
  bool IsUnreachable(RegistryRoot, const std::string& path) const override {
    return unreadable.contains(UpperCase(path));
  }

  bool AllClosed() const { return open_.empty() && !inBatch_; }

 private:
  Values* ValuesOf(RegistryKey key) {
    return unreachable || !open_.contains(key) ? nullptr : &contents[open_.at(key)];
  }

  bool Fail() {
    batchFailed_ = inBatch_;
    return false;
  }

  void CountChange() {
    batchChanged_ = inBatch_;
    changes += inBatch_ ? 0 : 1;
  }

  std::map<RegistryKey, std::pair<RegistryRoot, std::string>> open_;
  RegistryKey lastKey_ = 0;
  bool inBatch_ = false;
  bool batchChanged_ = false;
  bool batchFailed_ = false;
};

}  // namespace sentrel
