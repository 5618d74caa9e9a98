#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "common/coarse_clock.h"
#include "snmp/peer_address.h"

namespace sentrel {

/// What the same inform has in common each time that it is sent. Bytes differ: version 3 signs and
/// encrypts each again.
struct InformIdentity {
  const Peer& peer;
  /// The context engine ID of version 3; empty otherwise.
  std::string_view engine;
  /// The security name of version 3, else the community.
  std::string_view user;
  std::string_view requestId;
  /// In any form that differs where the bindings do.
  std::string_view bindings;
};

/// Which informs have been taken: a sender that misses the answer sends the same once more. Keeps
/// no more than a digest of each, by a random key, so that nobody can make two that differ count
/// as the same; and no more than kMost of them, of which the oldest is forgotten first. Belongs to
/// one thread.
class RepeatedInforms {
 public:
  static constexpr std::chrono::seconds kWindow{150};
  static constexpr std::size_t kMost = 32'768;
  using Time = CoarseClock::time_point;
  using Digest = std::array<std::uint8_t, 16>;

  RepeatedInforms();

  /// Nothing where it cannot be told: such an inform counts as new.
  std::optional<Digest> DigestOf(const InformIdentity& inform) const;
  /// Whether it was added no longer ago than kWindow. `now` never goes back.
  bool Has(const Digest& digest, Time now) const;
  /// One that it does not have.
  void Add(const Digest& digest, Time now);
  std::size_t Size() const { return times_.size(); }

 private:
  struct Hash {
    std::size_t operator()(const Digest& digest) const;
  };

  std::array<std::uint8_t, 32> key_;
  std::unordered_map<Digest, Time, Hash> times_;
  /// The oldest first.
  std::deque<Digest> order_;
};

}  // namespace sentrel
