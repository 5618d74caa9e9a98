#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

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

inline Datagram FromLoopback(const std::string& bytes) {
  Datagram datagram{.bytes = {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()},
                    .peer = {}};
  datagram.peer.remote.v4.sin_family = AF_INET;
  datagram.peer.remote.v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  datagram.peer.remoteLength = sizeof(sockaddr_in);
  return datagram;
}

}  // namespace sentrel::test
