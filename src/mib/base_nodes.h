#pragma once

#include <cstdint>
#include <unordered_map>

#include "mib/database.h"
#include "mib/import_resolver.h"
#include "mib/oid_tree.h"

namespace sentrel::mib {

/// Takes nodes of a base over into a tree, each with those above it.
class BaseNodes {
 public:
  /// Both must outlive it.
  BaseNodes(const Database& base, OidTree& tree) : base_(base), tree_(tree) {}

  /// The node in the tree that a definition in the base names; kNothing where it names none.
  std::uint32_t Take(const Target& target);
  /// The same for a target that has been taken.
  std::uint32_t At(const Target& target) const;

 private:
  const Database& base_;
  OidTree& tree_;
  /// By image and entry.
  std::unordered_map<std::uint64_t, std::uint32_t> taken_;
};

}  // namespace sentrel::mib
