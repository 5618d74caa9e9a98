#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace sentrel {

/// Bytes of a line.
inline constexpr std::size_t kBytesOfLine = 16;

/// Bytes as lines of one width, of at most 64 KB each: "0010  30 82 01 ...  0..", offset,
/// hexadecimal and ASCII, LF between them. What is not printable is a dot.
std::string ByteLines(std::string_view bytes);

/// Where in the lines the two digits of a byte begin, and where its character is.
std::size_t DigitsOf(std::size_t byte);
std::size_t CharacterOf(std::size_t byte);
/// The byte whose digits or character are at a place of the lines, or next to it; nothing in front
/// of the first byte of a line. May be behind the last byte.
std::optional<std::size_t> ByteAt(std::size_t place);

}  // namespace sentrel
