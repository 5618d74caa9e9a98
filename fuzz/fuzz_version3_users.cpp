// Any bytes as the file of version 3 users: what is read comes back when it is written.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "snmp/version3_user_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto read = sentrel::ReadVersion3Users({data, data + size});
  const auto again = sentrel::ReadVersion3Users(sentrel::Version3UsersText(read.users));
  const auto isSame = [](const sentrel::KeyedUser& a, const sentrel::KeyedUser& b) {
    return a.user == b.user && a.authKey == b.authKey && a.privKey == b.privKey;
  };
  const bool areSame = std::ranges::equal(read.users, again.users, isSame);
  if (!areSame || !again.problem.empty()) std::abort();
  return 0;
}
