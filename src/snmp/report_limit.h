#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "snmp/datagram.h"

namespace sentrel {

/// How many reports (RFC 3412, section 7.6) leave: anyone may ask for them, with a false sender's
/// address too. A sender that finds out this program's engine ID and time needs two for each of its
/// first informs. Belongs to one thread.
class ReportLimit {
 public:
  using Clock = std::chrono::steady_clock;

  /// In each second. Two seconds' worth is saved up.
  static constexpr double kOfOneSource = 100;
  static constexpr double kInAll = 1'000;

  ReportLimit();
  /// Whether one more report may leave for the peer.
  bool Allows(const Peer& peer, Clock::time_point now);

 private:
  struct Bucket {
    double reports = 0;
    Clock::time_point filledAt;
    bool Take(double perSecond, Clock::time_point now);
  };

  std::size_t secret_;
  Bucket all_;
  /// Sources share a bucket by chance.
  std::vector<Bucket> sources_;
};

}  // namespace sentrel
