#include "mib/resolver.h"

#include <future>
#include <iterator>

#include "mib/base_copy.h"
#include "mib/import_resolver.h"
#include "mib/module_adder.h"
#include "mib/node_resolver.h"
#include "mib/references.h"
#include "mib/type_list.h"
#include "mib/type_resolver.h"

namespace sentrel::mib {
namespace {

void MoveTo(FileMessages& all, FileMessages messages) {
  std::move(messages.begin(), messages.end(), std::back_inserter(all));
}

void Reserve(Catalog& catalog, const std::vector<Module>& modules, const Image& base) {
  size_t definitions = 0;
  for (const Module& module : modules) definitions += module.definitions.size();
  catalog.tree.Reserve(base.Nodes().size() + definitions);
  size_t entries = definitions;
  for (const format::ModuleRecord& module : base.Modules()) entries += base.Entries(module).size();
  catalog.entries.reserve(entries);
}

}  // namespace

Catalog Resolve(std::vector<Module>& modules, const Image& base, FileMessages& messages) {
  Catalog catalog;
  TypeList typeList(catalog.types);
  Reserve(catalog, modules, base);
  CopyBase(base, catalog, typeList);
  ImportResolver imports(modules, base);
  const References references(imports.ResolveAll(), catalog, catalog.entries.size());
  MoveTo(messages, imports.TakeMessages());
  NodeResolver nodes(modules, references, catalog.tree, messages);
  FileMessages typeMessages;
  TypeResolver types(modules, references, typeList, typeMessages);
  // Neither needs what the other finds. Both read the base's entries, which change no more.
  auto typesDone = std::async(std::launch::async, [&types] { types.ResolveAll(); });
  nodes.ResolveAll();
  typesDone.get();
  MoveTo(messages, std::move(typeMessages));
  ModuleAdder(modules, references, nodes, types, catalog, messages).AddAll();
  return catalog;
}

}  // namespace sentrel::mib
