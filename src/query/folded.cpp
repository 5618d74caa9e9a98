#include "query/folded.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace sentrel::query {
namespace {

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

std::string Folded(std::string_view text) {
  if (!IsAscii(text)) {
    utf8proc_uint8_t* folded = nullptr;
    const auto size = utf8proc_map(
        reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
        static_cast<utf8proc_ssize_t>(text.size()), &folded,
        static_cast<utf8proc_option_t>(UTF8PROC_CASEFOLD | UTF8PROC_COMPOSE | UTF8PROC_STABLE));
    const std::unique_ptr<utf8proc_uint8_t, void (*)(void*)> owner(folded, std::free);
    if (size >= 0) return {reinterpret_cast<const char*>(folded), static_cast<std::size_t>(size)};
  }
  std::string folded(text);
  std::ranges::transform(folded, folded.begin(), LowerCase);
  return folded;
}

bool Holds(std::string_view text, std::string_view foldedNeedle) {
  if (!IsAscii(text)) return Folded(text).find(foldedNeedle) != std::string::npos;
  const auto isSame = [](char a, char b) { return LowerCase(a) == b; };
  return foldedNeedle.empty() || std::search(text.begin(), text.end(), foldedNeedle.begin(),
                                             foldedNeedle.end(), isSame) != text.end();
}

}  // namespace sentrel::query
