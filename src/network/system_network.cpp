#include "network/system_network.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "network/firewall_rules.h"
#include "network/lost_datagrams.h"

namespace sentrel {
namespace {

/// The tool is not on the path of an ordinary user, who may still be one who may run it.
constexpr const char* kListRules =
    "PATH=$PATH:/usr/sbin:/sbin exec timeout 3 nft list ruleset 2>/dev/null";
constexpr std::size_t kLongestListing = 16 << 20;

std::string Content(const char* path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

FirewallVerdict ReadFirewall() {
  FILE* tool = popen(kListRules, "re");
  if (tool == nullptr) return FirewallVerdict::kUnreadable;
  std::string listing;
  std::array<char, 4096> part;
  while (listing.size() < kLongestListing) {
    const std::size_t count = std::fread(part.data(), 1, part.size(), tool);
    if (count == 0) break;
    listing.append(part.data(), count);
  }
  return pclose(tool) == 0 ? JudgeRuleset(listing) : FirewallVerdict::kUnreadable;
}

}  // namespace

LostDatagrams SystemNetwork::Lost() const {
  return ReadLostDatagrams(Content("/proc/net/snmp"), Content("/proc/net/netstat"),
                           Content("/proc/net/snmp6"));
}

std::future<FirewallVerdict> SystemNetwork::AskFirewall() const {
  return std::async(std::launch::async, ReadFirewall);
}

}  // namespace sentrel
