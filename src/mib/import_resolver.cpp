#include "mib/import_resolver.h"

#include <algorithm>
#include <bitset>

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

/// The targets of names that are looked for everywhere. Nearly every name in the world is none of
/// them: a bit for each length with its outer letters spares most of the hashing.
class Search {
 public:
  void Add(const Wanted& wanted) {
    targets_[wanted];
    maybe_.set(Sketch(wanted.name));
  }
  bool IsEmpty() const { return targets_.empty(); }

  /// Null for a name that is not looked for.
  std::vector<Target>* Find(const Wanted& wanted) {
    if (!maybe_[Sketch(wanted.name)]) return nullptr;
    const auto found = targets_.find(wanted);
    return found == targets_.end() ? nullptr : &found->second;
  }

 private:
  static constexpr size_t kBits = 1 << 14;

  static size_t Sketch(std::string_view name) {
    if (name.empty()) return 0;
    const auto letter = [](char c) { return static_cast<size_t>(static_cast<unsigned char>(c)); };
    return (name.size() * 641 + letter(name.front()) * 67 + letter(name.back())) % kBits;
  }

  std::unordered_map<Wanted, std::vector<Target>, WantedHash> targets_;
  std::bitset<kBits> maybe_;
};

bool IsTypeEntry(const format::EntryRecord& entry) {
  return entry.kind == static_cast<std::uint32_t>(Kind::Type);
}

/// Notes where in an image of the base, the one at this place, a name is that is looked for.
void SearchImage(const Image& image, std::uint32_t place, Search& search) {
  for (const format::ModuleRecord& module : image.Modules()) {
    const auto entries = image.Entries(module);
    for (std::uint32_t i = 0; i < entries.size(); ++i) {
      auto* found = search.Find({image.Text(entries[i].name), IsTypeEntry(entries[i])});
      if (found != nullptr) found->push_back({Target::Place::Base, place, module.firstEntry + i});
    }
  }
}

}  // namespace

ImportResolver::ImportResolver(const std::vector<Module>& modules, const Database& base)
    : modules_(modules), base_(base) {
  for (std::uint32_t i = 0; i < modules.size(); ++i) moduleByName_.emplace(modules[i].name, i);
  for (std::uint32_t i = 0; i < base.Images().size(); ++i) {
    const Image& image = *base.Images()[i];
    for (const format::ModuleRecord& module : image.Modules()) {
      baseByName_.emplace(image.Text(module.name), std::pair(i, &module));
    }
  }
}

std::vector<std::vector<Target>> ImportResolver::ResolveAll() {
  std::vector<std::vector<Target>> targets(modules_.size());
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    targets[m].resize(modules_[m].imports.size());
    const auto neighbours = NeighboursOf(modules_[m]);
    for (size_t i = 0; i < targets[m].size(); ++i) {
      const Import& import = modules_[m].imports[i];
      if (!import.isUsed) continue;
      targets[m][i] = InModule(import.module, import.name, import.isType);
      if (!targets[m][i].IsFound()) targets[m][i] = Nearby(neighbours, import);
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
  return target.IsFound() ? target : InBase(module, name, isType);
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

Target ImportResolver::InBase(std::string_view module, std::string_view name, bool isType) const {
  const auto found = baseByName_.find(module);
  if (found == baseByName_.end()) return {};
  const auto [place, record] = found->second;
  const Image& image = *base_.Images()[place];
  const auto entries = image.Entries(*record);
  auto at =
      std::lower_bound(entries.begin(), entries.end(), name,
                       [&](const auto& entry, auto text) { return image.Text(entry.name) < text; });
  for (; at != entries.end() && image.Text(at->name) == name; ++at) {
    if (IsTypeEntry(*at) == isType) {
      return {Target::Place::Base, place,
              static_cast<std::uint32_t>(record->firstEntry + (at - entries.begin()))};
    }
  }
  return {};
}

/// The modules that a module imports from, each once, as far as they are there.
std::vector<std::string_view> ImportResolver::NeighboursOf(const Module& module) const {
  std::vector<std::string_view> neighbours;
  std::string_view last;
  for (const Import& import : module.imports) {
    if (import.module == last) continue;
    last = import.module;
    if (IsKnown(last) &&
        std::find(neighbours.begin(), neighbours.end(), last) == neighbours.end()) {
      neighbours.push_back(last);
    }
  }
  return neighbours;
}

Target ImportResolver::Nearby(const std::vector<std::string_view>& neighbours,
                              const Import& import) const {
  for (const std::string_view neighbour : neighbours) {
    if (neighbour == import.module) continue;
    const Target target = InModule(neighbour, import.name, import.isType);
    if (target.IsFound()) return target;
  }
  return {};
}

/// One pass over everything for all names that are still missing.
void ImportResolver::FindAnywhere(std::vector<std::vector<Target>>& targets) {
  Search search;
  ForEachMissing(targets, [&](const Import& import, std::uint32_t, Target&) {
    search.Add({import.name, import.isType});
  });
  if (search.IsEmpty()) return;
  for (std::uint32_t i = 0; i < base_.Images().size(); ++i) {
    SearchImage(*base_.Images()[i], i, search);
  }
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (std::uint32_t d = 0; d < modules_[m].definitions.size(); ++d) {
      const Definition& definition = modules_[m].definitions[d];
      auto* found = search.Find({definition.name, definition.kind == Kind::Type});
      if (found != nullptr) found->push_back({Target::Place::Module, m, d});
    }
  }
  ForEachMissing(targets, [&](const Import& import, std::uint32_t module, Target& target) {
    const auto* candidates = search.Find({import.name, import.isType});
    if (candidates != nullptr) target = Choose(*candidates, modules_[module].file);
  });
}

/// Calls with each import that is used and not found yet, its module and its target.
template <typename Action>
void ImportResolver::ForEachMissing(std::vector<std::vector<Target>>& targets,
                                    const Action& action) const {
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (size_t i = 0; i < targets[m].size(); ++i) {
      const Import& import = modules_[m].imports[i];
      if (import.isUsed && !targets[m][i].IsFound()) action(import, m, targets[m][i]);
    }
  }
}

/// One of the same file if there is one, else the first.
Target ImportResolver::Choose(const std::vector<Target>& candidates, std::uint32_t file) const {
  const auto sameFile = std::find_if(candidates.begin(), candidates.end(), [&](const Target& t) {
    return t.place == Target::Place::Module && modules_[t.module].file == file;
  });
  if (sameFile != candidates.end()) return *sameFile;
  return candidates.empty() ? Target() : candidates.front();
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
