#pragma once

#include <string_view>

#include "platform/network_facts.h"

namespace sentrel {

/// What a listing of `nft list ruleset` does to datagrams for UDP port 162. A rule that drops or
/// rejects the port blocks it; so does a chain for incoming packets that drops by policy or at its
/// end, unless a rule accepts the port. Rules for some senders, interfaces or marks count as if
/// they were for all.
FirewallVerdict JudgeRuleset(std::string_view listing);

}  // namespace sentrel
