#include "mib/resolver.h"

#include <future>
#include <iterator>
#include <optional>
#include <utility>

#include "mib/base_facts.h"
#include "mib/name_claims.h"
#include "mib/node_resolver.h"
#include "mib/references.h"
#include "mib/token_reader.h"
#include "mib/type_list.h"
#include "mib/type_resolver.h"

namespace sentrel::mib {
namespace {

/// Whether two definitions of one module give one name to two nodes.
bool AreTwins(const Entry& a, const Entry& b) {
  const auto names = [](const Entry& entry) {
    return entry.node != kNothing && entry.kind != Kind::Label;
  };
  return a.name == b.name && a.node != b.node && names(a) && names(b);
}

void Append(std::vector<FileMessage>&& more, std::vector<FileMessage>& messages) {
  std::move(more.begin(), more.end(), std::back_inserter(messages));
}

/// An empty catalog with room for all entries.
Catalog RoomFor(const std::vector<Module>& modules, const Image& base) {
  std::size_t definitions = 0;
  for (const Module& module : modules) definitions += module.definitions.size();
  std::size_t baseEntries = 0;
  for (const format::ModuleRecord& module : base.Modules()) {
    baseEntries += base.Entries(module).size();
  }
  Catalog catalog;
  catalog.tree.Reserve(base.Nodes().size() + definitions);
  catalog.entries.reserve(baseEntries + definitions);
  return catalog;
}

std::vector<std::vector<Target>> ImportsOf(const std::vector<Module>& modules, const Image& base,
                                           std::vector<FileMessage>& messages) {
  ImportResolver resolver(modules, base);
  auto targets = resolver.ResolveAll();
  Append(resolver.TakeMessages(), messages);
  return targets;
}

/// Makes one catalog, once: first the base image, then the nodes and types of all modules, then the
/// modules' entries in the order of the list. Nodes are resolved in the caller's thread and types
/// in another. No entry is added before both are done, except those of the base image.
class Resolver {
 public:
  Resolver(std::vector<Module>& modules, const Image& base, std::vector<FileMessage>& messages)
      : modules_(modules),
        messages_(messages),
        catalog_(RoomFor(modules, base)),
        base_(base, catalog_, typeList_),
        references_(modules, ImportsOf(modules, base, messages)),
        nodes_(modules, references_, base_, catalog_.tree),
        types_(modules, references_, base_, catalog_.types, typeList_) {}

  Catalog Run();

 private:
  void AddModule(std::uint32_t m, NameClaims& claims);
  /// Nothing for a definition that is not worth an entry.
  std::optional<Entry> EntryOf(std::uint32_t m, std::uint32_t d);
  Span RelatedOf(std::uint32_t m, const Definition& definition);
  bool IsInstance(std::uint32_t m, const Definition& definition) const;
  void ReportRival(std::uint32_t m, const Definition& definition, const Entry& rival);
  void Report(std::uint32_t m, const Definition& definition, std::string text) {
    messages_.push_back({modules_[m].file, {{}, definition.line, std::move(text)}});
  }

  std::vector<Module>& modules_;
  std::vector<FileMessage>& messages_;
  Catalog catalog_;
  TypeList typeList_{catalog_.types};
  const BaseFacts base_;
  const References references_;
  NodeResolver nodes_;
  TypeResolver types_;
};

Catalog Resolver::Run() {
  // Neither needs what the other finds.
  auto types = std::async(std::launch::async, [this] { types_.ResolveAll(); });
  nodes_.ResolveAll();
  types.get();
  Append(nodes_.TakeMessages(), messages_);
  Append(types_.TakeMessages(), messages_);
  NameClaims claims(catalog_, base_);
  for (std::uint32_t m = 0; m < modules_.size(); ++m) AddModule(m, claims);
  return std::move(catalog_);
}

void Resolver::AddModule(std::uint32_t m, NameClaims& claims) {
  const Module& module = modules_[m];
  const auto begin = static_cast<std::uint32_t>(catalog_.entries.size());
  catalog_.modules.push_back({module.name, module.lastUpdated, {begin, 0}});
  std::vector<std::uint32_t> added;
  for (const std::uint32_t d : module.byName) {
    const auto entry = EntryOf(m, d);
    if (!entry) continue;
    if (!added.empty() && AreTwins(catalog_.entries.back(), *entry)) {
      Report(m, module.definitions[d], Quote(entry->name) + " has another OID in the same module");
    }
    catalog_.entries.push_back(*entry);
    added.push_back(d);
  }
  catalog_.modules.back().entries.count = static_cast<std::uint32_t>(added.size());
  claims.BeginModule();
  for (std::uint32_t i = 0; i < added.size(); ++i) {
    const std::uint32_t rival = claims.Claim(begin + i);
    if (rival == kNothing) continue;
    ReportRival(m, module.definitions[added[i]], catalog_.entries[rival]);
  }
}

std::optional<Entry> Resolver::EntryOf(std::uint32_t m, std::uint32_t d) {
  const Definition& definition = modules_[m].definitions[d];
  Entry entry;
  entry.name = definition.name;
  entry.kind = definition.kind;
  entry.isForNotify = definition.isForNotify;
  entry.related = RelatedOf(m, definition);
  entry.module = static_cast<std::uint32_t>(catalog_.modules.size() - 1);
  if (entry.kind != Kind::Type) {
    entry.node = nodes_.NodeOf(m, d);
    if (entry.node == kNothing || IsInstance(m, definition)) return std::nullopt;
  }
  if (entry.kind == Kind::Type || entry.kind == Kind::Object) entry.type = types_.TypeOf(m, d);
  if (entry.kind != Kind::Type) return entry;
  // The type of a row is never the type of a value.
  const bool isForValues =
      entry.type != kNothing && catalog_.types[entry.type].base != BaseType::Row;
  return isForValues ? std::optional(entry) : std::nullopt;
}

Span Resolver::RelatedOf(std::uint32_t m, const Definition& definition) {
  const auto begin = static_cast<std::uint32_t>(catalog_.related.size());
  for (std::uint32_t i = 0; i < definition.related.count; ++i) {
    const Reference reference = modules_[m].related[definition.related.begin + i];
    const std::uint32_t node = nodes_.NodeOf(references_.TargetOf(m, reference));
    if (node != kNothing) catalog_.related.push_back(node);
  }
  return {begin, static_cast<std::uint32_t>(catalog_.related.size()) - begin};
}

/// Whether a value only names the one instance of a scalar object, { sysUpTime 0 }: that instance
/// keeps its name as an instance.
bool Resolver::IsInstance(std::uint32_t m, const Definition& definition) const {
  if (definition.kind != Kind::Value || definition.numbers.count != 1 ||
      modules_[m].numbers[definition.numbers.begin] != 0) {
    return false;
  }
  const Target target = references_.TargetOf(m, definition.parent);
  if (target.place == Target::Place::Base) {
    return base_.EntryOf(target).kind == Kind::Object;
  }
  return target.IsFound() &&
         modules_[target.module].definitions[target.definition].kind == Kind::Object;
}

void Resolver::ReportRival(std::uint32_t m, const Definition& definition, const Entry& rival) {
  // A value without numbers of its own, { other }, is meant as a second name.
  if (rival.name == definition.name || definition.numbers.count == 0 || rival.kind == Kind::Label ||
      definition.kind == Kind::Label || base_.HasModule(rival.module)) {
    return;
  }
  Report(m, definition,
         Quote(definition.name) + " has the same OID as " + Quote(rival.name) + " of module " +
             Quote(catalog_.modules[rival.module].name));
}

}  // namespace

Catalog Resolve(std::vector<Module>& modules, const Image& base,
                std::vector<FileMessage>& messages) {
  return Resolver(modules, base, messages).Run();
}

}  // namespace sentrel::mib
