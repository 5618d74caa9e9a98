#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "common/text.h"
#include "platform/registry.h"

namespace sentrel {

/// A registry in memory, held against the real one by tests/store/registry_test.cpp. Make another
/// on the same contents to see what a next start would see.
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
    if (path.empty()) return std::nullopt;
    if (CanWrite() && !IsUnreachable(root, path)) contents.try_emplace({root, UpperCase(path)});
    return OpenKey(root, path);
  }

  std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override {
    if (IsUnreachable(root, path) || !HasKey(root, UpperCase(path))) return std::nullopt;
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
    if (!values || !CanWrite()) return Fail();
    (*values)[UpperCase(name)] = text;
    CountChange();
    return true;
  }

  bool DeleteValue(RegistryKey key, const std::string& name) override {
    Values* values = ValuesOf(key);
    if (!values || !values->contains(UpperCase(name))) return false;
    if (!CanWrite()) return Fail();
    values->erase(UpperCase(name));
    CountChange();
    return true;
  }

  void BeginBatch(RegistryBatch kind) override {
    batch_ = kind;
    before_ = contents;
  }
  bool EndBatch() override {
    batch_.reset();
    const bool failed = std::exchange(batchFailed_, false);
    if (failed) contents = before_;
    changes += std::exchange(batchChanged_, false) && !failed ? 1 : 0;
    return !failed;
  }
  bool IsUnreachable(RegistryRoot, const std::string& path) const override {
    return unreachable || unreadable.contains(UpperCase(path));
  }

  bool AllClosed() const { return open_.empty() && !batch_; }

 private:
  bool CanWrite() const {
    return !unreachable && !readOnly && (!batch_ || batch_ == RegistryBatch::Write);
  }

  /// A key is there with all of its parents.
  bool HasKey(RegistryRoot root, const std::string& path) const {
    return std::any_of(contents.begin(), contents.end(), [&](const auto& entry) {
      return entry.first.first == root && (entry.first.second + "\\").starts_with(path + "\\");
    });
  }

  Values* ValuesOf(RegistryKey key) {
    return unreachable || !open_.contains(key) ? nullptr : &contents[open_.at(key)];
  }

  bool Fail() {
    batchFailed_ = batch_ == RegistryBatch::Write;
    return false;
  }

  void CountChange() {
    batchChanged_ = batch_.has_value();
    changes += batch_ ? 0 : 1;
  }

  std::map<RegistryKey, std::pair<RegistryRoot, std::string>> open_;
  RegistryKey lastKey_ = 0;
  std::optional<RegistryBatch> batch_;
  Contents before_;
  bool batchChanged_ = false;
  bool batchFailed_ = false;
};

}  // namespace sentrel
