#pragma once

#include <string>

#include "snmp/ber.h"

namespace sentrel {

/// Replaces the text by that of a value: numbers in decimal, OBJECT IDENTIFIER and IpAddress
/// dotted, an Opaque float, double or 64-bit integer as a number, nothing for NULL, and octets as
/// OctetText gives them.
///
/// Returns false, and leaves an OddText, where the value does not fit its type (RFC 2578) or has a
/// type that no variable can have.
bool ValueText(const ber::Element& value, std::string& text);

/// What a value is shown as that cannot be read: its tag and its octets, "tag 0x40: 0xC00002" or
/// "tag 0x02: empty". Only values that are octets themselves can have the same text, and of those
/// (OCTET STRING, BIT STRING, Opaque, NsapAddress) none is odd.
void OddText(const ber::Element& value, std::string& text);

/// Replaces the text by an object identifier in dotted decimal, without a leading dot. Returns
/// false, and leaves any text, where the content of the element is none: 2 to 128 numbers
/// below 2^32 (RFC 2578, section 3.5).
bool OidText(ber::Bytes content, std::string& text);

}  // namespace sentrel
