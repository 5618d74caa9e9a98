#include "network/firewall_rules.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "network/lines_of_words.h"

namespace sentrel {
namespace {

constexpr int kTrapPort = 162;
constexpr std::string_view kTrapService = "snmp-trap";

/// So that the numbers of a set are words too.
constexpr std::string_view kBlanks = " \t{},;";

/// -1 where it is none.
int NumberOf(std::string_view text) {
  int number = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : -1;
}

/// "162", "160-170" or the service's name.
bool IsTrapPort(std::string_view word) {
  if (word == kTrapService || word == "snmptrap") return true;
  const auto dash = word.find('-');
  if (dash == std::string_view::npos) return NumberOf(word) == kTrapPort;
  const int first = NumberOf(word.substr(0, dash));
  return first >= 0 && first <= kTrapPort && kTrapPort <= NumberOf(word.substr(dash + 1));
}

using Words = std::vector<std::string_view>;

bool Has(const Words& words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

/// Whether the rule speaks of the destination port 162 over UDP, or over any protocol.
bool IsAboutTraps(const Words& words) {
  const auto port = std::ranges::find(words, "dport");
  if (port == words.end() || Has(words, "tcp")) return false;
  return std::any_of(port + 1, words.end(), IsTrapPort);
}

bool Refuses(const Words& words) {
  return Has(words, "drop") || Has(words, "reject");
}

/// A rule without a condition, as many chains end.
bool RefusesAll(const Words& words) {
  return !words.empty() &&
         (words[0] == "drop" || words[0] == "reject" || (words[0] == "counter" && Refuses(words)));
}

}  // namespace

FirewallVerdict JudgeRuleset(std::string_view listing) {
  bool hasRules = false;
  bool letsIn = false;
  bool blocks = false;
  bool isRestClosed = false;
  bool isInput = false;
  for (const Words& words : LinesOfWords(listing, kBlanks)) {
    if (words[0].starts_with('#')) continue;
    hasRules = true;
    if (words[0] == "chain") isInput = false;
    if (words[0] == "type" && Has(words, "hook")) {
      isInput = Has(words, "input");
      isRestClosed = isRestClosed || (isInput && Has(words, "policy") && Has(words, "drop"));
    } else if (IsAboutTraps(words)) {
      letsIn = letsIn || Has(words, "accept");
      blocks = blocks || Refuses(words);
    } else if (isInput && RefusesAll(words)) {
      isRestClosed = true;
    }
  }
  if (!hasRules) return FirewallVerdict::kNoRules;
  return blocks || (isRestClosed && !letsIn) ? FirewallVerdict::kBlocks : FirewallVerdict::kLetsIn;
}

}  // namespace sentrel
