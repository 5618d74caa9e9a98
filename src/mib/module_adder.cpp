#include "mib/module_adder.h"

#include "mib/token_reader.h"

namespace sentrel::mib {
namespace {

/// Whether two definitions of one module give one name to two nodes.
bool AreTwins(const Entry& a, const Entry& b) {
  const auto names = [](const Entry& entry) {
    return entry.node != kNothing && entry.kind != Kind::Label;
  };
  return a.name == b.name && a.node != b.node && names(a) && names(b);
}

}  // namespace

ModuleAdder::ModuleAdder(const std::vector<Module>& modules, const References& references,
                         const NodeResolver& nodes, const TypeResolver& types, const Database& base,
                         Catalog& catalog, FileMessages& messages)
    : modules_(modules),
      references_(references),
      nodes_(nodes),
      types_(types),
      catalog_(catalog),
      messages_(messages),
      claims_(catalog, base) {}

void ModuleAdder::AddAll() {
  for (std::uint32_t m = 0; m < modules_.size(); ++m) Add(m);
}

void ModuleAdder::Add(std::uint32_t m) {
  const auto begin = static_cast<std::uint32_t>(catalog_.entries.size());
  catalog_.modules.push_back({modules_[m].name, modules_[m].lastUpdated, {begin, 0}});
  std::vector<std::uint32_t> added;
  AddEntries(m, added);
  CatalogModule& module = catalog_.modules.back();
  module.entries.count = static_cast<std::uint32_t>(added.size());
  claims_.Begin(module);
  for (std::uint32_t i = 0; i < added.size(); ++i) {
    const std::uint32_t rival = claims_.Claim(begin + i);
    if (rival != kNothing) {
      ReportRival(m, modules_[m].definitions[added[i]], catalog_.entries[rival]);
    }
  }
}

/// Adds the module's entries to the last module of the catalog; `added` tells their definitions.
void ModuleAdder::AddEntries(std::uint32_t m, std::vector<std::uint32_t>& added) {
  for (const std::uint32_t d : modules_[m].byName) {
    const Definition& definition = modules_[m].definitions[d];
    Entry entry = EntryOf(m, d);
    if (!IsWorthKeeping(entry, m, definition)) continue;
    entry.related = RelatedOf(m, definition);
    if (!added.empty() && AreTwins(catalog_.entries.back(), entry)) {
      Report(m, definition, Quote(entry.name) + " has another OID in the same module");
    }
    catalog_.entries.push_back(entry);
    added.push_back(d);
  }
}

Entry ModuleAdder::EntryOf(std::uint32_t m, std::uint32_t d) const {
  const Definition& definition = modules_[m].definitions[d];
  Entry entry;
  entry.name = definition.name;
  entry.kind = definition.kind;
  entry.isForNotify = definition.isForNotify;
  entry.module = static_cast<std::uint32_t>(catalog_.modules.size() - 1);
  if (entry.kind != Kind::Type) entry.node = nodes_.NodeOf(m, d);
  if (entry.kind == Kind::Type || entry.kind == Kind::Object) entry.type = types_.TypeOf(m, d);
  return entry;
}

bool ModuleAdder::IsWorthKeeping(const Entry& entry, std::uint32_t m,
                                 const Definition& definition) const {
  if (entry.kind != Kind::Type) return entry.node != kNothing && !IsInstance(m, definition);
  // The type of a row is never the type of a value.
  return entry.type != kNothing && catalog_.types[entry.type].base != BaseType::Row;
}

/// Whether a value only names the one instance of a scalar object, { sysUpTime 0 }: that instance
/// keeps its name as an instance.
bool ModuleAdder::IsInstance(std::uint32_t m, const Definition& definition) const {
  if (definition.kind != Kind::Value || definition.numbers.count != 1 ||
      modules_[m].numbers[definition.numbers.begin] != 0) {
    return false;
  }
  const Target target = references_.TargetOf(m, definition.parent);
  if (target.place == Target::Place::Base) {
    return references_.KindInBase(target) == Kind::Object;
  }
  return target.IsFound() &&
         modules_[target.module].definitions[target.definition].kind == Kind::Object;
}

Span ModuleAdder::RelatedOf(std::uint32_t m, const Definition& definition) {
  const auto begin = static_cast<std::uint32_t>(catalog_.related.size());
  for (std::uint32_t i = 0; i < definition.related.count; ++i) {
    const Reference related = modules_[m].related[definition.related.begin + i];
    const std::uint32_t node = nodes_.NodeOf(references_.TargetOf(m, related));
    if (node != kNothing) catalog_.related.push_back(node);
  }
  return {begin, static_cast<std::uint32_t>(catalog_.related.size()) - begin};
}

void ModuleAdder::ReportRival(std::uint32_t m, const Definition& definition, const Entry& rival) {
  // A value without numbers of its own, { other }, is meant as a second name.
  if (rival.name == definition.name || definition.numbers.count == 0 || rival.kind == Kind::Label ||
      definition.kind == Kind::Label) {
    return;
  }
  Report(m, definition,
         Quote(definition.name) + " has the same OID as " + Quote(rival.name) + " of module " +
             Quote(catalog_.modules[rival.module].name));
}

void ModuleAdder::Report(std::uint32_t m, const Definition& definition, std::string text) {
  messages_.push_back({modules_[m].file, {{}, definition.line, std::move(text)}});
}

}  // namespace sentrel::mib
