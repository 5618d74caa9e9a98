#pragma once

#include <vector>

#include "mib/catalog.h"

namespace sentrel::mib {

/// The built-in module of what the program itself sends.
inline constexpr std::string_view kProgramModule = "SENTREL-MIB";

/// Decides which of the entries that claim one node gives it its name. In this order:
/// kProgramModule wins if the base holds it or is empty, then definitions over labels given in
/// passing, modules over the base, modules of the enterprise that the node belongs to over others,
/// macros over plain values, the newer module over the older one, the earlier in the list over the
/// later one.
class NameClaims {
 public:
  /// The first modules of the catalog, this many, are those of the base, with their names. All
  /// nodes are in its tree. The catalog must outlive the claims.
  NameClaims(Catalog& catalog, size_t baseModules);

  /// Begins with a module, the next one that is not of the base. Its entries are in the catalog.
  void Begin(const CatalogModule& module);
  /// Gives the node of one of the module's entries its name if the entry is the strongest so far.
  /// Returns the other entry that claims the node; kNothing where there is none.
  std::uint32_t Claim(std::uint32_t entry);

 private:
  auto RankOf(const Entry& entry) const;

  Catalog& catalog_;
  const size_t baseModules_;
  /// By node.
  const BigVector<std::uint32_t> enterprises_;
  /// By module that is not in the base: the enterprise whose module it is.
  std::vector<std::uint32_t> homes_;
};

}  // namespace sentrel::mib
