#pragma once

#include "common/failure.h"
#include "platform/version3_user_store.h"

namespace sentrel {

/// For a listener whose users come from files alone: the settings say so and change nothing.
class NoVersion3Users : public Version3UserStore {
 public:
  std::vector<Version3User> Users() const override { throw Failure(kOnlyFiles); }
  void Replace(const std::vector<Version3UserEntry>&) override { throw Failure(kOnlyFiles); }
  void ForgetEngine(const std::string&) override { throw Failure(kOnlyFiles); }

 private:
  static constexpr const char* kOnlyFiles =
      "Users come from createUser lines in sentrel.conf alone.";
};

}  // namespace sentrel
