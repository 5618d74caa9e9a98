#include "mib/import_resolver.h"

#include <algorithm>

#include "mib/hash.h"
#include "mib/token_reader.h"

namespace sentrel::mib {
namespace {

struct Wanted {
  std::string_view name;
  bool isType;
  bool operator==(const Wanted&) const = default;
};

struct WantedHash {
  size_t operator()(const Wanted& wanted) const { return Hash(wanted.name, wanted.isType ? 1 : 0); }
};

bool IsTypeEntry(const format::EntryRecord& entry) {
  return entry.kind == static_cast<std::uint32_t>(Kind::Type);
}

}  // namespace

ImportResolver::ImportResolver(const std::vector<Module>& modules, const Image& base)
    : modules_(modules), base_(base) {
  for (std::uint32_t i = 0; i < modules.size(); ++i) moduleByName_.emplace(modules[i].name, i);
  const auto baseModules = base.Modules();
  for (std::uint32_t i = 0; i < baseModules.size(); ++i) {
    baseByName_.emplace(base.Text(baseModules[i].name), i);
  }
}

std::vector<std::vector<Target>> ImportResolver::ResolveAll() {
  std::vector<std::vector<Target>> targets(modules_.size());
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    targets[m].resize(modules_[m].imports.size());
    for (size_t i = 0; i < targets[m].size(); ++i) {
      const Import& import = modules_[m].imports[i];
      if (!import.isUsed) continue;
      targets[m][i] = InModule(import.module, import.name, import.isType);
      if (!targets[m][i].IsFound()) targets[m][i] = Nearby(m, import);
    }
    ReportMissingModules(modules_[m]);
  }
  FindAnywhere(targets);
  return targets;
}

bool ImportResolver::IsKnown(std::string_view module) const {
  return moduleByName_.contains(module) || baseByName_.contains(module);
}

Target ImportResolver::InModule(std::string_view module, std::string_view name, bool isType) const {
  Target target;
  if (module.empty()) return target;
  const auto found = moduleByName_.find(module);
  if (found != moduleByName_.end()) target = InDefinitions(found->second, name, isType);
  if (target.IsFound()) return target;
  const auto inBase = baseByName_.find(module);
  if (inBase == baseByName_.end()) return target;
  return InBaseModule(base_.Modules()[inBase->second], name, isType);
}

Target ImportResolver::InDefinitions(std::uint32_t module, std::string_view name,
                                     bool isType) const {
  const auto& definitions = modules_[module].definitions;
  const auto& byName = modules_[module].byName;
  auto at = std::lower_bound(byName.begin(), byName.end(), name, [&](std::uint32_t i, auto text) {
    return definitions[i].name < text;
  });
  for (; at != byName.end() && definitions[*at].name == name; ++at) {
    if ((definitions[*at].kind == Kind::Type) == isType) {
      return {Target::Place::Module, module, *at};
    }
  }
  return {};
}

Target ImportResolver::InBaseModule(const format::ModuleRecord& module, std::string_view name,
                                    bool isType) const {
  const auto entries = base_.Entries(module);
  auto at =
      std::lower_bound(entries.begin(), entries.end(), name,
                       [&](const auto& entry, auto text) { return base_.Text(entry.name) < text; });
  for (; at != entries.end() && base_.Text(at->name) == name; ++at) {
    if (IsTypeEntry(*at) == isType) {
      return {Target::Place::Base, 0,
              static_cast<std::uint32_t>(module.firstEntry + (at - entries.begin()))};
    }
  }
  return {};
}

Target ImportResolver::Nearby(std::uint32_t module, const Import& import) const {
  std::string_view tried = import.module;
  for (const Import& other : modules_[module].imports) {
    if (other.module == tried) continue;
    tried = other.module;
    const Target target = InModule(other.module, import.name, import.isType);
    if (target.IsFound()) return target;
  }
  return {};
}

/// One pass over everything for all names that are still missing.
void ImportResolver::FindAnywhere(std::vector<std::vector<Target>>& targets) {
  std::unordered_map<Wanted, std::vector<Target>, WantedHash> wanted;
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (size_t i = 0; i < targets[m].size(); ++i) {
      const Import& import = modules_[m].imports[i];
      if (import.isUsed && !targets[m][i].IsFound()) wanted[{import.name, import.isType}];
    }
  }
  if (wanted.empty()) return;
  for (const format::ModuleRecord& module : base_.Modules()) {
    const auto entries = base_.Entries(module);
    for (std::uint32_t i = 0; i < entries.size(); ++i) {
      const auto found = wanted.find({base_.Text(entries[i].name), IsTypeEntry(entries[i])});
      if (found != wanted.end()) {
        found->second.push_back({Target::Place::Base, 0, module.firstEntry + i});
      }
    }
  }
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (std::uint32_t d = 0; d < modules_[m].definitions.size(); ++d) {
      const Definition& definition = modules_[m].definitions[d];
      const auto found = wanted.find({definition.name, definition.kind == Kind::Type});
      if (found != wanted.end()) found->second.push_back({Target::Place::Module, m, d});
    }
  }
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (size_t i = 0; i < targets[m].size(); ++i) {
      const Import& import = modules_[m].imports[i];
      if (!import.isUsed || targets[m][i].IsFound()) continue;
      const auto& candidates = wanted[{import.name, import.isType}];
      const auto sameFile =
          std::find_if(candidates.begin(), candidates.end(), [&](const Target& t) {
            return t.place == Target::Place::Module && modules_[t.module].file == modules_[m].file;
          });
      if (sameFile != candidates.end()) {
        targets[m][i] = *sameFile;
      } else if (!candidates.empty()) {
        targets[m][i] = candidates.front();
      }
    }
  }
}

/// One message for each module that is imported from and not there, with a name that is needed
/// of it.
void ImportResolver::ReportMissingModules(const Module& module) {
  std::string_view reported;
  for (const Import& import : module.imports) {
    if (!import.isUsed || import.module.empty() || import.module == reported) continue;
    if (IsKnown(import.module)) continue;
    reported = import.module;
    messages_.push_back({module.file,
                         {{},
                          import.line,
                          "module " + Quote(import.module) + " is missing, " + Quote(import.name) +
                              " is imported from it"}});
  }
}

}  // namespace sentrel::mib
