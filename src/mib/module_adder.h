#pragma once

#include <string>
#include <vector>

#include "mib/catalog.h"
#include "mib/message.h"
#include "mib/module.h"
#include "mib/name_claims.h"
#include "mib/node_resolver.h"
#include "mib/references.h"
#include "mib/type_resolver.h"

namespace sentrel::mib {

/// Adds modules to a catalog whose nodes and types are complete: makes entries of their
/// definitions, and lets them claim their nodes.
class ModuleAdder {
 public:
  /// The catalog has no modules yet. All must outlive the adder.
  ModuleAdder(const std::vector<Module>& modules, const References& references,
              const NodeResolver& nodes, const TypeResolver& types, const Database& base,
              Catalog& catalog, FileMessages& messages);

  /// Adds the modules in their order.
  void AddAll();

 private:
  void Add(std::uint32_t m);
  void AddEntries(std::uint32_t m, std::vector<std::uint32_t>& added);
  Entry EntryOf(std::uint32_t m, std::uint32_t d) const;
  bool IsWorthKeeping(const Entry& entry, std::uint32_t m, const Definition& definition) const;
  bool IsInstance(std::uint32_t m, const Definition& definition) const;
  Span RelatedOf(std::uint32_t m, const Definition& definition);
  void ReportRival(std::uint32_t m, const Definition& definition, const Entry& rival);
  void Report(std::uint32_t m, const Definition& definition, std::string text);

  const std::vector<Module>& modules_;
  const References& references_;
  const NodeResolver& nodes_;
  const TypeResolver& types_;
  Catalog& catalog_;
  FileMessages& messages_;
  NameClaims claims_;
};

}  // namespace sentrel::mib
