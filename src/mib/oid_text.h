#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace sentrel::mib {

/// An OID taken apart, without an allocation.
class OidText {
 public:
  /// The most numbers that an OID has (RFC 2578 section 7.1.3).
  static constexpr size_t kMost = 128;

  /// Accepts dotted decimal, with a leading dot or without, of at most 128 numbers of 32 bits.
  /// The text must outlive the object.
  explicit OidText(std::string_view text);

  /// False where the text is no OID; then there are no numbers.
  bool IsOid() const { return count_ > 0; }
  std::span<const std::uint32_t> Numbers() const { return {numbers_.data(), count_}; }
  /// The text behind the first `count` numbers: ".7", or empty.
  std::string_view Behind(size_t count) const {
    return text_.substr(count == 0 ? 0 : ends_[count - 1]);
  }

 private:
  std::string_view text_;
  size_t count_ = 0;
  std::array<std::uint32_t, kMost> numbers_;
  std::array<std::uint16_t, kMost> ends_;
};

}  // namespace sentrel::mib
