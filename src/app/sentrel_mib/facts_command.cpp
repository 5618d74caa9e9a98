#include "mib/facts.h"

#include <iostream>
#include <stdexcept>

#include "commands.h"
#include "common/atomic_file.h"
#include "mib/collection.h"
#include "mib/image_writer.h"
#include "surroundings.h"

namespace sentrel::app {
namespace {

constexpr const char* kFactEnding = ".facts";
constexpr std::string_view kRootsName = "ENTERPRISE-ROOTS";

void RequireFolders(const Arguments& arguments) {
  if (arguments.rest.empty() || arguments.output.empty()) {
    throw std::invalid_argument("-o and a folder are needed");
  }
}

mib::Collection ReadAll(const Arguments& arguments, const mib::ReadOptions& options = {}) {
  return {mib::FindSources(FoldersOf(arguments.rest)).files, options};
}

/// The node of 1.3.6.1.4.1.
std::uint32_t EnterprisesOf(mib::Catalog& catalog) {
  std::uint32_t node = mib::OidTree::kRoot;
  for (const std::uint32_t number : {1, 3, 6, 1, 4, 1}) node = catalog.tree.Child(node, number);
  return node;
}

void WriteWithFolder(const std::string& path, std::string_view bytes) {
  MakeFolderFor(path);
  WriteFile(path, bytes);
}

}  // namespace

int WriteFactFiles(const Arguments& arguments) {
  RequireFolders(arguments);
  mib::Collection collection = ReadAll(arguments);
  const auto base = mib::Image::Empty();
  const mib::Catalog catalog = collection.Compile(*base);
  for (const mib::CatalogModule& module : catalog.modules) {
    if (module.entries.count == 0) continue;
    WriteWithFolder(arguments.output + "/" + std::string(module.name) + kFactEnding,
                    mib::WriteFacts(catalog, module));
  }
  return 0;
}

/// A module of its own that holds nothing but the nodes right below the node of the enterprises.
int WriteEnterpriseRoots(const Arguments& arguments) {
  RequireFolders(arguments);
  mib::Collection collection = ReadAll(arguments);
  const auto base = BuiltInDatabase();
  mib::Catalog catalog = collection.Compile(*base);
  const std::uint32_t enterprises = EnterprisesOf(catalog);
  mib::CatalogModule roots{kRootsName, 0, {static_cast<std::uint32_t>(catalog.entries.size()), 0}};
  for (std::uint32_t node = 0; node < catalog.names.size(); ++node) {
    if (catalog.names[node] == mib::kNothing) continue;
    if (catalog.tree.Nodes()[node].parent != enterprises) continue;
    mib::Entry root = catalog.entries[catalog.names[node]];
    if (root.module < base->Modules().size()) continue;
    root.kind = mib::Kind::Label;
    catalog.entries.push_back(root);
    ++roots.entries.count;
  }
  WriteWithFolder(arguments.output, mib::WriteFacts(catalog, roots));
  return 0;
}

int PackFacts(const Arguments& arguments) {
  RequireFolders(arguments);
  mib::ReadOptions options;
  options.parse = mib::ParseFacts;
  mib::Collection collection = ReadAll(arguments, options);
  for (const mib::Message& message : collection.AllMessages()) {
    std::cerr << message.ToText() << '\n';
  }
  if (!collection.AllMessages().empty()) return 1;
  // That standards claim each other's OIDs is no fault of the facts.
  WriteWithFolder(arguments.output, mib::MakeImage(collection.Compile(*mib::Image::Empty()), 0));
  return 0;
}

}  // namespace sentrel::app
