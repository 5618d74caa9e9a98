#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "common/failure.h"
#include "platform/version3_user_store.h"

namespace sentrel {

/// Users in memory. Each of the three steps fails with a message while the message is not empty.
class FakeVersion3Users : public Version3UserStore {
 public:
  std::vector<Version3User> Users() const override {
    Check(unreadable);
    return users;
  }
  void Replace(const std::vector<Version3UserEntry>& entries) override {
    Check(unwritable);
    std::erase_if(users, [](const Version3User& user) { return !user.isFromFile; });
    for (const Version3UserEntry& entry : entries) users.push_back(entry.user);
    replaced = entries;
    ++replacements;
  }
  void ForgetEngine(const std::string& engine) override {
    Check(unforgettable);
    forgotten.push_back(engine);
  }

  std::vector<Version3User> users;
  std::string unreadable;
  std::string unwritable;
  std::string unforgettable;
  /// What Replace was called with last.
  std::vector<Version3UserEntry> replaced;
  int replacements = 0;
  std::vector<std::string> forgotten;

 private:
  static void Check(const std::string& failure) {
    if (!failure.empty()) throw Failure(failure);
  }
};

}  // namespace sentrel
