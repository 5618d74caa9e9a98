#include "settings/community_strings.h"

#include <algorithm>

#include "common/text.h"

namespace sentrel {

void CommunityStrings::Add(const std::string& CommunityString) {
  const std::string text(TrimBlanks(CommunityString));
  strings_.Add(text, text);
}

std::int16_t CommunityStrings::Count() const {
  return static_cast<std::int16_t>(std::min<std::size_t>(strings_.Count(), INT16_MAX));
}

void CommunityStrings::Refresh() {
  Clear();
  for (const std::string& text : stored_.Load()) Add(text);
  stored_.SetLoaded(CStrings());
}

}  // namespace sentrel
