#pragma once

#include <utility>
#include <vector>

#include "mib/import_resolver.h"
#include "mib/module.h"

namespace sentrel::mib {

/// What the references in modules mean, inside of a module and across modules. Does not change, so
/// any thread may ask. The modules must outlive it.
class References {
 public:
  /// `imports` has one target for each import of each module, as ImportResolver finds them.
  References(const std::vector<Module>& modules, std::vector<std::vector<Target>> imports)
      : modules_(modules), imports_(std::move(imports)) {}

  Target TargetOf(std::uint32_t module, Reference reference) const {
    if (reference.IsNone()) return {};
    if (reference.IsLocal()) {
      return {Target::Place::Module, module, static_cast<std::uint32_t>(reference.Local())};
    }
    return imports_[module][reference.Import()];
  }
  /// The name that a reference to an import has in the module's text.
  std::string_view ImportedName(std::uint32_t module, Reference reference) const {
    return modules_[module].imports[reference.Import()].name;
  }

 private:
  const std::vector<Module>& modules_;
  std::vector<std::vector<Target>> imports_;
};

}  // namespace sentrel::mib
