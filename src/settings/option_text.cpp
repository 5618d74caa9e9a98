#include "settings/option_text.h"

#include <charconv>

#include "common/text.h"

namespace sentrel {

std::optional<bool> ReadBoolean(std::string_view text) {
  const std::string word = UpperCase(TrimBlanks(text));
  if (word == "TRUE") return true;
  if (word == "FALSE") return false;
  const auto number = ReadLong(text);
  return number ? std::optional(*number != 0) : std::nullopt;
}

std::optional<std::int32_t> ReadLong(std::string_view text) {
  text = TrimBlanks(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  std::int32_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

}  // namespace sentrel
