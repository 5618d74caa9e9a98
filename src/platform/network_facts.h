#pragma once

#include <cstdint>
#include <future>
#include <optional>
#include <string>

namespace sentrel {

/// Datagrams that the system took off the network and that no program got to read, since the system
/// started, IPv4 and IPv6 together. Of all ports: the system counts them no finer. Nothing where it
/// does not tell.
struct LostDatagrams {
  /// For a port that no program had open.
  std::optional<std::uint64_t> noPort;
  std::optional<std::uint64_t> wrongChecksum;
  /// The buffer of the program was full.
  std::optional<std::uint64_t> fullBuffer;
  /// Fragments of which one or more did not come.
  std::optional<std::uint64_t> notReassembled;
  /// The way back to the sender is not the way that they came (RFC 3704, section 2.2).
  std::optional<std::uint64_t> wrongWay;
};

/// What the rules of a firewall do to UDP port 162, as far as they can be read.
enum class FirewallVerdict {
  /// This user may not read the rules, or there is no tool to read them.
  kUnreadable,
  kNoRules,
  kLetsIn,
  kBlocks,
};

/// What the system tells of the network. Called on the event loop; never throws.
class NetworkFacts {
 public:
  virtual ~NetworkFacts() = default;
  virtual LostDatagrams Lost() const = 0;
  /// Asks in the background, for a few seconds at most.
  virtual std::future<FirewallVerdict> AskFirewall() const = 0;
};

}  // namespace sentrel
