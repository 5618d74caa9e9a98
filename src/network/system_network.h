#pragma once

#include "platform/network_facts.h"

namespace sentrel {

/// What this machine's files and tools tell of its network.
class SystemNetwork : public NetworkFacts {
 public:
  LostDatagrams Lost() const override;
  /// Rules of nftables, through which those of iptables, ufw and firewalld are listed too. Readable
  /// for root alone on most systems.
  std::future<FirewallVerdict> AskFirewall() const override;
};

}  // namespace sentrel
