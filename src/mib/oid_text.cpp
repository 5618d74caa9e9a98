#include "mib/oid_text.h"

#include <charconv>
#include <limits>

namespace sentrel::mib {

OidText::OidText(std::string_view text) : text_(text) {
  if (text.size() > std::numeric_limits<std::uint16_t>::max()) return;
  const char* at = text.data();
  const char* const end = at + text.size();
  if (at != end && *at == '.') ++at;
  for (size_t count = 0; count < kMost; ++count) {
    const auto [behind, error] = std::from_chars(at, end, numbers_[count]);
    if (error != std::errc()) return;
    ends_[count] = static_cast<std::uint16_t>(behind - text.data());
    if (behind == end) {
      count_ = count + 1;
      return;
    }
    if (*behind != '.') return;
    at = behind + 1;
  }
}

}  // namespace sentrel::mib
