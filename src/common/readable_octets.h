#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sentrel {

/// For octets that are no plain UTF-8 text: the text, in UTF-8, that they most likely mean. That is
/// text with one NUL behind it, as of a C string, or text in ISO 8859-1, or both. Nothing where
/// they might equally be an address, a time, BITS, an engine ID or a hash. The octets cannot be
/// recovered from the text.
///
/// Behind the NUL that is left out, all octets are printable, and:
/// - Up to three octets: at least two, all ASCII letters of one word. They may be a network (IPv4)
///   or BITS.
/// - ASCII or UTF-8 of four octets or more holds an ASCII letter or digit.
/// - ISO 8859-1 has five octets or more. A letter beyond ASCII is part of a word, next to at
///   most one other such letter. Up to eight octets, which may be a MAC address or an EUI-64, are
///   one word with one such letter. Longer values may hold signs such as the degree, none of them
///   next to another octet beyond ASCII, and are to two thirds ASCII letters, digits and blanks.
///   There are at least two ASCII letters for each octet beyond ASCII.
/// A word is a run of letters, all small, all capital, or with a capital in front.
///
/// DateAndTime and engine IDs begin with octets that are no text in either way. Of random MAC
/// addresses one in 10,000 is read as a word; one in 400 is plain ASCII in any case.
std::optional<std::string> ReadableOctets(std::string_view octets);

}  // namespace sentrel
