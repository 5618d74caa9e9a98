#pragma once

#include "platform/network_facts.h"

namespace sentrel {

/// A system that tells what a test says. Until `firewall` is set, its firewall is still being read.
class FakeNetworkFacts : public NetworkFacts {
 public:
  LostDatagrams Lost() const override { return lost; }
  std::future<FirewallVerdict> AskFirewall() const override {
    firewall = {};
    return firewall.get_future();
  }

  LostDatagrams lost{
      .noPort = 0, .wrongChecksum = 0, .fullBuffer = 0, .notReassembled = 0, .wrongWay = 0};
  mutable std::promise<FirewallVerdict> firewall;
};

}  // namespace sentrel
