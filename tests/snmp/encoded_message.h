#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "snmp/ber.h"
#include "snmp/datagram.h"

namespace sentrel::test {

/// One element with a length of the usual form.
inline std::string Tagged(int tag, const std::string& content) {
  EXPECT_LT(content.size(), 0x10000U);
  std::string length{'\x82', static_cast<char>(content.size() >> 8)};
  if (content.size() < 0x80) length.clear();
  return static_cast<char>(tag) + length + static_cast<char>(content.size()) + content;
}

/// A PDU of RFC 3416 around the content of a list of bindings.
inline std::string Pdu(int tag, const std::string& bindings,
                       const std::string& requestId = "\x01") {
  const std::string zero = Tagged(2, std::string(1, '\0'));
  return Tagged(tag, Tagged(2, requestId) + zero + zero + Tagged(0x30, bindings));
}

/// A message of version 1 or 2c.
inline std::string Message(int version, const std::string& pdu,
                           const std::string& community = "public") {
  const std::string number(1, static_cast<char>(version));
  return Tagged(0x30, Tagged(2, number) + Tagged(4, community) + pdu);
}

/// An IPv4 address in the machine's own order of bytes.
inline Peer PeerOf(std::uint32_t address, std::uint16_t port) {
  Peer peer{};
  peer.remote.v4.sin_family = AF_INET;
  peer.remote.v4.sin_addr.s_addr = htonl(address);
  peer.remote.v4.sin_port = htons(port);
  peer.remoteLength = sizeof(sockaddr_in);
  return peer;
}

inline Datagram FromLoopback(const std::string& bytes) {
  return {ber::BytesOf(bytes), PeerOf(INADDR_LOOPBACK, 0)};
}

}  // namespace sentrel::test
