#pragma once

#include <utility>
#include <vector>

#include "mib/database.h"
#include "mib/import_resolver.h"

namespace sentrel::mib {

/// Where the references of modules lead. Immutable, and so safe to use from any thread.
class References {
 public:
  /// `imports` has a target for each import of each module. The base must outlive the references.
  References(std::vector<std::vector<Target>> imports, const Database& base)
      : imports_(std::move(imports)), base_(base) {}

  /// What a reference out of module `m` means.
  Target TargetOf(std::uint32_t m, Reference reference) const {
    if (reference.IsNone()) return {};
    if (reference.IsLocal()) {
      return {Target::Place::Module, m, static_cast<std::uint32_t>(reference.Local())};
    }
    return imports_[m][reference.Import()];
  }

  /// What a target in the base defines.
  Kind KindInBase(const Target& target) const {
    return static_cast<Kind>(base_.Images()[target.module]->EntryAt(target.definition).kind);
  }

 private:
  std::vector<std::vector<Target>> imports_;
  const Database& base_;
};

}  // namespace sentrel::mib
