#include "snmp/answer_limit.h"

#include <algorithm>
#include <functional>
#include <random>
#include <string>

namespace sentrel {
namespace {

constexpr std::size_t kBuckets = 4'096;
constexpr double kSavedSeconds = 2;

/// The network that the sender belongs to, as far as it is one's to choose: the whole of an IPv4
/// address, mapped into IPv6 or not, and the upper half of an IPv6 address.
std::string NetworkOf(const Peer& peer) {
  const auto* const v4 = reinterpret_cast<const char*>(&peer.remote.v4.sin_addr);
  if (peer.remote.any.sa_family == AF_INET) return {v4, 4};
  const in6_addr& v6 = peer.remote.v6.sin6_addr;
  const auto* const bytes = reinterpret_cast<const char*>(&v6);
  return IN6_IS_ADDR_V4MAPPED(&v6) ? std::string(bytes + 12, 4) : std::string(bytes, 8);
}

}  // namespace

AnswerLimit::AnswerLimit(double ofOneSource, double inAll)
    : ofOneSource_(ofOneSource),
      inAll_(inAll),
      secret_(std::random_device()()),
      sources_(kBuckets) {}

bool AnswerLimit::Bucket::Fill(double perSecond, Clock::time_point now) {
  const std::chrono::duration<double> since = now - filledAt;
  answers = std::min(answers + since.count() * perSecond, kSavedSeconds * perSecond);
  filledAt = now;
  return answers >= 1;
}

bool AnswerLimit::Bucket::Take(double perSecond, Clock::time_point now) {
  if (!Fill(perSecond, now)) return false;
  answers -= 1;
  return true;
}

AnswerLimit::Bucket& AnswerLimit::BucketOf(const Peer& peer) {
  const std::size_t hash = std::hash<std::string>()(std::to_string(secret_) + NetworkOf(peer));
  return sources_[hash % kBuckets];
}

bool AnswerLimit::Allows(const Peer& peer, Clock::time_point now) {
  return BucketOf(peer).Take(ofOneSource_, now) && all_.Take(inAll_, now);
}

bool AnswerLimit::HasRoom(const Peer& peer, Clock::time_point now) {
  return BucketOf(peer).Fill(ofOneSource_, now) && all_.Fill(inAll_, now);
}

}  // namespace sentrel
