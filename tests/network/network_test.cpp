#include <gtest/gtest.h>

#include "network/firewall_rules.h"
#include "network/lost_datagrams.h"

namespace sentrel {
namespace {

TEST(LostDatagramsTest, TheFilesOfTheSystemAreAddedUp) {
  const LostDatagrams lost = ReadLostDatagrams(
      "Ip: Forwarding ReasmFails\nIp: 2 4\nUdp: InDatagrams NoPorts RcvbufErrors InCsumErrors\n"
      "Udp: 9 25 11 1\nUdpLite: NoPorts\nUdpLite: 7\n",
      "TcpExt: SyncookiesSent IPReversePathFilter\nTcpExt: 0 3\n",
      "Ip6ReasmFails \t40\nUdp6NoPorts 1\nUdp6RcvbufErrors 2\nUdp6InCsumErrors 0\n");
  EXPECT_EQ(lost.noPort, 26);
  EXPECT_EQ(lost.fullBuffer, 13);
  EXPECT_EQ(lost.wrongChecksum, 1);
  EXPECT_EQ(lost.notReassembled, 44);
  EXPECT_EQ(lost.wrongWay, 3);
}

TEST(LostDatagramsTest, WhatIsMissingOrOddIsNotTold) {
  const std::pair<const char*, std::optional<std::uint64_t>> cases[] = {
      {"", {}},
      {"Udp: NoPorts\n", {}},
      {"Udp: NoPorts\nIp: 1\n", {}},
      {"Udp: NoPorts\nUdp:\n", {}},
      {"Udp: NoPorts\nUdp: -1\n", {}},
      {"Udp: NoPorts\nUdp: 99999999999999999999999\n", {}},
      {"Udp: NoPorts\nUdp: 5 6 7", 5},
      {"Udp: NoPorts\nUdp: 5\nUdp: 6\n", 5},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(ReadLostDatagrams(text, "", "").noPort, expected) << text;
  }
}

std::string Input(const std::string& policy, const std::string& rules) {
  return "table inet filter {\n\tchain input {\n\t\ttype filter hook input priority filter; "
         "policy " +
         policy + ";\n\t\tct state established,related accept\n" + rules + "\t}\n}\n";
}

TEST(FirewallRulesTest, ARulesetLetsTrapsInOrBlocksThem) {
  using enum FirewallVerdict;
  const std::pair<std::string, FirewallVerdict> cases[] = {
      {"", kNoRules},
      {"# Warning: table ip filter is managed by iptables-nft, do not touch!\n", kNoRules},
      {Input("accept", ""), kLetsIn},
      {Input("drop", "\t\tiif \"lo\" accept\n\t\ttcp dport 162 accept\n"), kBlocks},
      {Input("drop", "\t\tudp dport 162 accept\n"), kLetsIn},
      {Input("drop", "\t\tudp dport { 161, 162 } counter packets 0 bytes 0 accept\n"), kLetsIn},
      {Input("drop", "\t\tudp dport 100-200 accept\n"), kLetsIn},
      {Input("drop", "\t\tudp dport 163-200 accept\n"), kBlocks},
      {Input("drop", "\t\tudp dport snmp-trap accept\n"), kLetsIn},
      {Input("drop", "\t\tudp sport 162 accept\n"), kBlocks},
      {Input("accept", "\t\tudp dport 162 drop\n"), kBlocks},
      {Input("accept", "\t\tct state invalid drop\n"), kLetsIn},
      {Input("accept", "\t\treject with icmpx admin-prohibited\n"), kBlocks},
      {Input("accept", "\t\tcounter packets 7 bytes 9 drop\n"), kBlocks},
      {"table ip nat {\n\tchain out {\n\t\ttype filter hook output priority 0; policy "
       "drop;\n\t\tdrop"
       "\n\t}\n}\n",
       kLetsIn},
      {Input("drop", "\t\tjump services\n") +
           "table inet x {\n\tchain services {\n\t\tth dport 162 "
           "accept\n\t}\n}\n",
       kLetsIn},
      {"chain {{{{ dport\ntype hook\ndport dport -162- 162-\n", kLetsIn},
  };
  for (const auto& [listing, verdict] : cases) EXPECT_EQ(JudgeRuleset(listing), verdict) << listing;
}

}  // namespace
}  // namespace sentrel
