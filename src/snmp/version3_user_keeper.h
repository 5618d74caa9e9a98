#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/version3_user_store.h"
#include "snmp/version3_keys.h"

namespace sentrel {

/// The users that people change while the program runs, kept in a file, and what the receiver tells
/// of them. What the store has is for the event loop, the rest for the receiver's thread, which
/// asks TakeChanged before it reads each batch: so a change holds from the next message on.
class Version3UserKeeper final : public Version3UserStore {
 public:
  /// An empty path keeps the users for this run alone.
  explicit Version3UserKeeper(std::string path);

  std::vector<Version3User> Users() const override;
  void Replace(const std::vector<Version3UserEntry>& entries) override;
  /// Done when the receiver reads next, at the latest when it ends.
  void ForgetEngine(const std::string& engine) override;

  /// Whether users or forgotten engines have changed since it was asked last.
  bool TakeChanged() { return changed_.exchange(false); }
  std::vector<KeyedUser> Keyed() const;
  std::vector<std::string> TakeForgotten();
  /// The users of the SNMP library's own files.
  void SetUsersFromFile(std::vector<Version3User> users);
  /// A message of this user has been taken. `engine` is that of the entry: empty for any.
  void NoteHeard(const std::string& name, const std::string& engine);

 private:
  using Moment = std::chrono::system_clock::time_point;

  void Load() const;
  KeyedUser WithKeys(const Version3UserEntry& entry) const;

  const std::string path_;
  mutable std::atomic<bool> changed_ = true;
  mutable std::mutex mutex_;
  mutable std::vector<KeyedUser> users_;
  /// Why the file is not read whole; empty where it is. The event loop's alone.
  mutable std::string problem_;
  std::vector<Version3User> fromFile_;
  std::vector<std::string> forgotten_;
  /// By name and engine of the entry.
  std::map<std::pair<std::string, std::string>, Moment> heard_;
};

}  // namespace sentrel
