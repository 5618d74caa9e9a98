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

void RequireFolders(const Arguments& arguments) {
  if (arguments.rest.empty() || arguments.output.empty()) {
    throw std::invalid_argument("-o and a folder are needed");
  }
}

mib::Collection ReadAll(const Arguments& arguments, const mib::ReadOptions& options = {}) {
  return {mib::FindSources(FoldersOf(arguments.rest)).files, options};
}

void WriteWithFolder(const std::string& path, std::string_view bytes) {
  MakeFolderFor(path);
  WriteFile(path, bytes);
}

}  // namespace

int WriteFactFiles(const Arguments& arguments) {
  RequireFolders(arguments);
  mib::Collection collection = ReadAll(arguments);
  const mib::Catalog catalog = collection.Compile({});
  for (const mib::CatalogModule& module : catalog.modules) {
    if (module.entries.count == 0) continue;
    WriteWithFolder(arguments.output + "/" + std::string(module.name) + kFactEnding,
                    mib::WriteFacts(catalog, module));
  }
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
  WriteWithFolder(arguments.output, mib::MakeImage(collection.Compile({}), 0));
  return 0;
}

}  // namespace sentrel::app
