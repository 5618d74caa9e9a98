#pragma once

#include <cstdint>
#include <vector>

#include "mib/base_facts.h"
#include "mib/catalog.h"

namespace sentrel::mib {

/// Decides which of the entries that claim one OID gives it its name, by the rule that Resolve
/// tells. For when all nodes are known.
class NameClaims {
 public:
  /// Both must outlive this.
  NameClaims(Catalog& catalog, const BaseFacts& base);

  /// The catalog's last module, whose entries claim from now on.
  void BeginModule();
  /// Gives the entry's node its name if the entry is the strongest so far. Returns the other entry
  /// that claims the node, if there is one, else kNothing.
  std::uint32_t Claim(std::uint32_t entry);

 private:
  /// Greater is stronger.
  auto RankOf(const Entry& entry) const;

  Catalog& catalog_;
  const BaseFacts& base_;
  /// By node.
  const BigVector<std::uint32_t> enterprises_;
  /// By module that is not in the base image: the enterprise whose module it is.
  std::vector<std::uint32_t> homes_;
};

}  // namespace sentrel::mib
