#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sentrel {

/// A value name, value or default as the store keeps it: as text. Booleans are "True" or "False",
/// whole numbers decimal digits.
class OptionText {
 public:
  OptionText(std::string text) : text_(std::move(text)) {}
  OptionText(std::string_view text) : text_(text) {}
  OptionText(const char* text) : text_(text) {}
  OptionText(bool value) : text_(value ? "True" : "False") {}
  OptionText(std::int32_t value) : text_(std::to_string(value)) {}

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

/// "True" and "False" in any case, or a whole number, of which only 0 is false. Blanks around it
/// are allowed. Nothing for any other text.
std::optional<bool> ReadBoolean(std::string_view text);

/// A whole number of 32 bits in decimal digits, with a sign or not. Blanks around it are allowed.
/// Nothing for any other text.
std::optional<std::int32_t> ReadLong(std::string_view text);

}  // namespace sentrel
