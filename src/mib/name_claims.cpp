#include "mib/name_claims.h"

#include <tuple>

#include "mib/enterprise.h"

namespace sentrel::mib {

NameClaims::NameClaims(Catalog& catalog, size_t baseModules)
    : catalog_(catalog), baseModules_(baseModules), enterprises_(EnterprisesOf(catalog.tree)) {
  catalog_.names.resize(catalog_.tree.Nodes().size(), kNothing);
}

void NameClaims::Begin(const CatalogModule& module) {
  homes_.push_back(HomeOf(catalog_, module, enterprises_));
}

/// Greater is stronger.
auto NameClaims::RankOf(const Entry& entry) const {
  const auto weight = entry.kind == Kind::Label ? 0 : entry.kind == Kind::Value ? 1 : 2;
  const bool isOwn = entry.module >= baseModules_;
  const CatalogModule& module = catalog_.modules[entry.module];
  const bool isOwner = isOwn && enterprises_[entry.node] == homes_[entry.module - baseModules_];
  const bool isProgram = module.name == kProgramModule && (!isOwn || baseModules_ == 0);
  return std::make_tuple(isProgram, weight > 0, isOwn, isOwner, weight, module.lastUpdated);
}

std::uint32_t NameClaims::Claim(std::uint32_t index) {
  const Entry& entry = catalog_.entries[index];
  if (entry.node == kNothing || entry.node == OidTree::kRoot) return kNothing;
  std::uint32_t& name = catalog_.names[entry.node];
  const std::uint32_t rival = name;
  if (rival == kNothing || RankOf(entry) > RankOf(catalog_.entries[rival])) name = index;
  return rival;
}

}  // namespace sentrel::mib
