#include "mib/name_claims.h"

#include <algorithm>
#include <tuple>

#include "mib/enterprise.h"

namespace sentrel::mib {

NameClaims::NameClaims(Catalog& catalog, const Database& base)
    : catalog_(catalog),
      hasBase_(std::any_of(base.Images().begin(), base.Images().end(),
                           [](const auto& image) { return !image->Modules().empty(); })),
      enterprises_(EnterprisesOf(catalog.tree)),
      baseNames_(BaseNamesOf(catalog.tree, base)) {
  catalog_.names.resize(catalog_.tree.Nodes().size(), kNothing);
}

void NameClaims::Begin(const CatalogModule& module) {
  homes_.push_back(HomeOf(catalog_, module, enterprises_));
}

bool NameClaims::LosesToBase(const Entry& entry) const {
  const BaseName name = baseNames_[entry.node];
  return name == BaseName::Program || (name == BaseName::Definition && entry.kind == Kind::Label);
}

/// Greater is stronger.
auto NameClaims::RankOf(const Entry& entry) const {
  const auto weight = entry.kind == Kind::Label ? 0 : entry.kind == Kind::Value ? 1 : 2;
  const CatalogModule& module = catalog_.modules[entry.module];
  const bool isOwner = enterprises_[entry.node] == homes_[entry.module];
  const bool isProgram = module.name == kProgramModule && !hasBase_;
  return std::make_tuple(isProgram, weight > 0, isOwner, weight, module.lastUpdated);
}

std::uint32_t NameClaims::Claim(std::uint32_t index) {
  const Entry& entry = catalog_.entries[index];
  if (entry.node == kNothing || entry.node == OidTree::kRoot || LosesToBase(entry)) return kNothing;
  std::uint32_t& name = catalog_.names[entry.node];
  const std::uint32_t rival = name;
  if (rival == kNothing || RankOf(entry) > RankOf(catalog_.entries[rival])) name = index;
  return rival;
}

}  // namespace sentrel::mib
