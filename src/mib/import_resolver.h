#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mib/database.h"
#include "mib/message.h"
#include "mib/module.h"

namespace sentrel::mib {

/// Where a definition is: in one of the modules being compiled, or in the base.
struct Target {
  enum class Place : std::uint8_t { Nowhere, Module, Base };
  Place place = Place::Nowhere;
  std::uint32_t module = 0;      ///< position in the list of modules, or of the base's images
  std::uint32_t definition = 0;  ///< position in Module::definitions, or in the image's entries

  bool IsFound() const { return place != Place::Nowhere; }
};

/// Finds what the imports of modules refer to. A name that is not where the module says, or that
/// the module forgot to import, is looked for in the other modules that it imports from, in those
/// of the same file, in the base and in all modules, in this order.
class ImportResolver {
 public:
  /// Modules are in the order of their precedence. Both must outlive the resolver.
  ImportResolver(const std::vector<Module>& modules, const Database& base);

  /// One target for each import, in order. Reports modules that are missing and names that are
  /// not to be found; messages carry the position of the module's file as text.
  std::vector<std::vector<Target>> ResolveAll();
  /// A message of each import that led nowhere, by the number of its file.
  FileMessages TakeMessages() { return std::move(messages_); }

 private:
  Target InModule(std::string_view module, std::string_view name, bool isType) const;
  Target InDefinitions(std::uint32_t module, std::string_view name, bool isType) const;
  Target InBase(std::string_view module, std::string_view name, bool isType) const;
  std::vector<std::string_view> NeighboursOf(const Module& module) const;
  Target Nearby(const std::vector<std::string_view>& neighbours, const Import& import) const;
  void FindAnywhere(std::vector<std::vector<Target>>& targets);
  template <typename Action>
  void ForEachMissing(std::vector<std::vector<Target>>& targets, const Action& action) const;
  Target Choose(const std::vector<Target>& candidates, std::uint32_t file) const;
  void ReportMissingModules(const Module& module);
  bool IsKnown(std::string_view module) const;

  const std::vector<Module>& modules_;
  const Database& base_;
  std::unordered_map<std::string_view, std::uint32_t> moduleByName_;
  /// The image of a module of the base, by its place, and the module.
  std::unordered_map<std::string_view, std::pair<std::uint32_t, const format::ModuleRecord*>>
      baseByName_;
  FileMessages messages_;
};

}  // namespace sentrel::mib
