#pragma once

#include <vector>

#include "mib/base_names.h"
#include "mib/catalog.h"

namespace sentrel::mib {

/// Decides which of the entries that claim one node gives it its name. In this order:
/// kProgramModule wins if the base holds it or is empty, then definitions over labels given in
/// passing, modules over the base, modules of the enterprise that the node belongs to over others,
/// macros over plain values, the newer module over the older one, the earlier in the list over the
/// later one. A node whose name in the base wins has none in the catalog.
class NameClaims {
 public:
  /// All nodes are in the catalog's tree. The catalog must outlive the claims.
  NameClaims(Catalog& catalog, const Database& base);

  /// Begins with the next module of the catalog, whose entries are complete.
  void Begin(const CatalogModule& module);
  /// Gives the node of one of the module's entries its name if the entry is the strongest so far.
  /// Returns the other entry that claims the node; kNothing where there is none.
  std::uint32_t Claim(std::uint32_t entry);

 private:
  bool LosesToBase(const Entry& entry) const;
  auto RankOf(const Entry& entry) const;

  Catalog& catalog_;
  const bool hasBase_;
  /// By node.
  const BigVector<std::uint32_t> enterprises_;
  const BigVector<BaseName> baseNames_;
  /// By module: the enterprise whose module it is.
  std::vector<std::uint32_t> homes_;
};

}  // namespace sentrel::mib
