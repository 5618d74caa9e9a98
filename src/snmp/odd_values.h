#pragma once

#include <cstdint>
#include <span>

namespace sentrel {

/// Writes an OCTET STRING over every binding value that the SNMP library would refuse, and with it
/// the whole message, so that it can go on to answer: to be called when ReadPdu has taken the true
/// values. Takes the bytes of a PDU of RFC 3416, beginning with its tag, and keeps their number and
/// every length around the values. Where something in the list is no binding, the rest of the list
/// becomes one. Bytes that ReadPdu refuses are left alone.
void NeutralizeOddValues(std::span<std::uint8_t> pdu);

}  // namespace sentrel
