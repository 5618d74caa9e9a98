#include "mib/lookup.h"

#include <iostream>

#include "commands.h"
#include "surroundings.h"

namespace sentrel::app {
namespace {

void Print(const mib::Image& image, const std::string& oid) {
  const mib::Lookup found = mib::LookUp(image, oid);
  std::cout << oid << '\t' << found.name << '\t' << mib::ListOf(image, *found.type) << '\n';
}

}  // namespace

int LookUpOids(const Arguments& arguments) {
  const auto image =
      arguments.folders.empty() ? ProgramDatabase() : DatabaseWith(arguments.folders);
  for (const std::string& oid : arguments.rest) Print(*image, oid);
  if (!arguments.rest.empty()) return 0;
  for (std::string line; std::getline(std::cin, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) Print(*image, line);
  }
  return 0;
}

}  // namespace sentrel::app
