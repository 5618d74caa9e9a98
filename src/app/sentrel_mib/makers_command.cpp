#include <map>
#include <set>
#include <stdexcept>

#include "commands.h"
#include "common/atomic_file.h"
#include "mib/collection.h"
#include "mib/enterprise.h"
#include "mib/facts.h"
#include "surroundings.h"

namespace sentrel::app {
namespace {

/// Modules in the order of their names.
using Modules = std::map<std::string_view, const mib::CatalogModule*>;

/// For each module whether its facts lie in one of the folders: the files are named after modules.
std::vector<bool> FindHeld(const mib::Catalog& catalog, const std::vector<std::string>& folders) {
  std::set<std::string> held;
  for (const std::string& file : mib::FindSources(FoldersOf(folders)).files) {
    const std::string name = file.substr(file.rfind('/') + 1);
    held.insert(name.substr(0, name.find('.')));
  }
  std::vector<bool> isHeld;
  for (const mib::CatalogModule& module : catalog.modules) {
    isHeld.push_back(held.contains(std::string(module.name)));
  }
  return isHeld;
}

/// Of what does not belong to a maker: what is left of the standards.
std::string FileName(const mib::Catalog& catalog, const mib::BigVector<std::uint32_t>& enterprises,
                     std::uint32_t maker) {
  if (maker == mib::kNoEnterprise) return "no-maker.facts";
  const auto& nodes = catalog.tree.Nodes();
  std::string name = std::to_string(maker);
  for (size_t node = 1; node < nodes.size(); ++node) {
    const bool isRoot = enterprises[node] == maker && enterprises[nodes[node].parent] != maker;
    if (!isRoot || catalog.names[node] == mib::kNothing) continue;
    name.append("-").append(catalog.entries[catalog.names[node]].name);
  }
  return name + ".facts";
}

}  // namespace

int WriteMakerFacts(const Arguments& arguments) {
  if (arguments.rest.empty() || arguments.output.empty()) {
    throw std::invalid_argument("-o and a folder are needed");
  }
  mib::Collection collection(mib::FindSources(FoldersOf(arguments.rest)).files, {});
  mib::Catalog catalog = collection.Compile({});
  const auto isHeld = FindHeld(catalog, arguments.folders);
  const mib::TrapSelection selection(catalog, isHeld);
  const auto enterprises = mib::EnterprisesOf(catalog.tree);
  std::map<std::uint32_t, Modules> makers;
  for (const mib::CatalogModule& module : catalog.modules) {
    makers[mib::HomeOf(catalog, module, enterprises)].emplace(module.name, &module);
  }
  for (const auto& [maker, modules] : makers) {
    std::string facts;
    for (const auto& [name, module] : modules) {
      facts += mib::WriteFacts(catalog, *module, &selection);
    }
    if (facts.empty()) continue;
    const std::string path = arguments.output + "/" + FileName(catalog, enterprises, maker);
    MakeFolderFor(path);
    WriteFile(path, facts);
  }
  return 0;
}

}  // namespace sentrel::app
