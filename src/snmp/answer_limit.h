#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "snmp/peer_address.h"

namespace sentrel {

/// How many answers leave that anyone can ask for, with a false sender's address too: reports (RFC
/// 3412, section 7.6), and answers to informs that were recorded. A sender that finds out this
/// program's engine ID and time needs two reports for each of its first informs. Belongs to one
/// thread.
class AnswerLimit {
 public:
  using Clock = std::chrono::steady_clock;

  /// In each second. Two seconds' worth is saved up.
  static constexpr double kOfOneSource = 100;
  static constexpr double kInAll = 1'000;

  explicit AnswerLimit(double ofOneSource = kOfOneSource, double inAll = kInAll);
  /// Whether one more answer may leave for the peer.
  bool Allows(const Peer& peer, Clock::time_point now);
  /// The same, without counting one.
  bool HasRoom(const Peer& peer, Clock::time_point now);

 private:
  struct Bucket {
    double answers = 0;
    Clock::time_point filledAt;
    /// Whether there is one to take.
    bool Fill(double perSecond, Clock::time_point now);
    bool Take(double perSecond, Clock::time_point now);
  };

  Bucket& BucketOf(const Peer& peer);

  const double ofOneSource_;
  const double inAll_;
  std::size_t secret_;
  Bucket all_;
  /// Sources share a bucket by chance.
  std::vector<Bucket> sources_;
};

}  // namespace sentrel
