#pragma once

#include <utility>
#include <vector>

#include "mib/catalog.h"
#include "mib/import_resolver.h"

namespace sentrel::mib {

/// Where the references of modules lead. Immutable, and so safe to use from any thread.
class References {
 public:
  /// `imports` has a target for each import of each module. The entries of the base image are the
  /// first of the catalog, in the same order. Modules and catalog must outlive the references.
  References(std::vector<std::vector<Target>> imports, const Catalog& catalog, size_t baseEntries)
      : imports_(std::move(imports)), catalog_(catalog), baseEntries_(baseEntries) {}

  /// What a reference out of module `m` means.
  Target TargetOf(std::uint32_t m, Reference reference) const {
    if (reference.IsNone()) return {};
    if (reference.IsLocal()) {
      return {Target::Place::Module, m, static_cast<std::uint32_t>(reference.Local())};
    }
    return imports_[m][reference.Import()];
  }

  /// The entry of a target in the base image; an empty one where there is none.
  const Entry& BaseEntry(const Target& target) const {
    static const Entry kNone;
    return target.definition < baseEntries_ ? catalog_.entries[target.definition] : kNone;
  }

 private:
  std::vector<std::vector<Target>> imports_;
  const Catalog& catalog_;
  size_t baseEntries_;
};

}  // namespace sentrel::mib
