#include "mib/resolver.h"

#include <future>
#include <iterator>

#include "mib/base_types.h"
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

size_t CountDefinitions(const std::vector<Module>& modules) {
  size_t count = 0;
  for (const Module& module : modules) count += module.definitions.size();
  return count;
}

}  // namespace

Catalog Resolve(std::vector<Module>& modules, const Database& base, FileMessages& messages) {
  Catalog catalog;
  catalog.tree.Reserve(CountDefinitions(modules));
  catalog.entries.reserve(CountDefinitions(modules));
  ImportResolver imports(modules, base);
  const References references(imports.ResolveAll(), base);
  MoveTo(messages, imports.TakeMessages());
  NodeResolver nodes(modules, references, base, catalog.tree, messages);
  TypeList typeList(catalog.types);
  BaseTypes baseTypes(base, typeList, catalog.ownValues);
  FileMessages typeMessages;
  TypeResolver types(modules, references, baseTypes, typeList, typeMessages);
  // Neither needs what the other finds.
  auto typesDone = std::async(std::launch::async, [&types] { types.ResolveAll(); });
  nodes.ResolveAll();
  typesDone.get();
  MoveTo(messages, std::move(typeMessages));
  ModuleAdder(modules, references, nodes, types, base, catalog, messages).AddAll();
  return catalog;
}

}  // namespace sentrel::mib
