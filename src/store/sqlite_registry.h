#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "platform/registry.h"
#include "store/registry_file.h"

namespace sentrel {

/// The registry in two SQLite files: the machine's for HKEY_LOCAL_MACHINE, the user's for
/// HKEY_CURRENT_USER. Where this user cannot write the machine's file, the user's file also takes
/// what is written to HKEY_LOCAL_MACHINE, and there lies over what the machine's file says: value
/// by value, and list by list.
///
/// A file is open only while a key or a batch is. Used on the event loop only.
class SqliteRegistry : public Registry {
 public:
  /// The clock dates damaged files and must outlive the registry.
  SqliteRegistry(const std::filesystem::path& machineFile, const std::filesystem::path& userFile,
                 const Clock& clock);

  std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override;
  std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override;
  bool CloseKey(RegistryKey key) override;
  std::optional<std::string> QueryStringValue(RegistryKey key, const std::string& name) override;
  bool SetStringValue(RegistryKey key, const std::string& name, const std::string& text) override;
  bool DeleteValue(RegistryKey key, const std::string& name) override;
  void BeginBatch(RegistryBatch kind) override;
  bool EndBatch() override;
  bool IsUnreachable(RegistryRoot root, const std::string& path) const override;

 private:
  struct Key {
    RegistryRoot root;
    /// Begins with the name of the root.
    std::string path;
  };

  const Key* Find(RegistryKey key) const;
  /// Nothing where a file that may hold it cannot be read.
  std::optional<bool> Exists(const Key& key);
  bool CanOpen(const Key& key);
  /// For the rest of this undertaking, and until the key is read again.
  void SetUnreachable(const Key& key);
  RegistryKey Opened(const Key& key);
  RegistryFile::Value Get(const Key& key, const std::string& name);
  /// Runs a step that writes, as a batch of its own unless one is open.
  template <typename Step>
  bool Write(Step step);
  /// The file that takes writes under this root; the same from the first write of a batch to its
  /// end. Null if none can.
  RegistryFile* Target(RegistryRoot root);
  /// Whether the user's file says something about a value of the machine.
  bool IsOverlaid(const Key& key, const std::string& name);
  /// Lets the machine's value, or list, show. False where the user's file hides it for good.
  bool DropOverlay(const Key& key, const std::string& name);
  /// Lets the user's file say that there is no such value.
  bool HideMachines(const Key& key, const std::string& name);
  void Begin(RegistryBatch kind);
  bool End();
  void CloseIfUnused();
  /// What happens between one call and the next is an undertaking: a batch, or the use of a key.
  void BeginUndertaking(RegistryBatch kind);

  // The user's file must still have time to take what the machine's did not.
  Patience machinePatience_{std::chrono::milliseconds(500)};
  Patience userPatience_{std::chrono::milliseconds(750)};
  RegistryFile machine_;
  RegistryFile user_;
  std::map<RegistryKey, Key> open_;
  RegistryKey lastKey_ = 0;
  /// By the undertaking in which each could not be read; paths in upper case.
  std::map<std::string, std::uint64_t> unreachable_;
  std::uint64_t undertaking_ = 0;
  std::optional<RegistryBatch> batch_;
  std::optional<bool> machineTakesWrites_;
  bool failed_ = false;
};

}  // namespace sentrel
