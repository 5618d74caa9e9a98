#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "mib/base_facts.h"
#include "mib/message.h"
#include "mib/references.h"

namespace sentrel::mib {

/// Finds the place in the tree of each definition that has an OID, and makes the places that are
/// missing. Each is looked for at most once, and a chain of references that leads back to itself is
/// cut with one message. Writes nothing but the tree, so types may be resolved at the same time.
class NodeResolver {
 public:
  /// All must outlive this.
  NodeResolver(const std::vector<Module>& modules, const References& references,
               const BaseFacts& base, OidTree& tree);

  void ResolveAll();

  /// kNothing where the definition has no OID, or none that can be known. For after ResolveAll.
  std::uint32_t NodeOf(std::uint32_t module, std::uint32_t definition) const {
    return nodeOf_[module][definition];
  }
  /// Of what a reference means.
  std::uint32_t NodeOf(const Target& target) const;
  std::vector<FileMessage> TakeMessages() { return std::move(messages_); }

 private:
  std::uint32_t Resolve(std::uint32_t m, std::uint32_t d, int depth);
  std::uint32_t Find(std::uint32_t m, const Definition& definition, int depth);
  std::uint32_t ParentOf(std::uint32_t m, const Definition& definition, int depth);
  void Report(std::uint32_t m, const Definition& definition, std::string text);

  const std::vector<Module>& modules_;
  const References& references_;
  const BaseFacts& base_;
  OidTree& tree_;
  /// By module and definition.
  std::vector<std::vector<std::uint32_t>> nodeOf_;
  std::vector<FileMessage> messages_;
};

}  // namespace sentrel::mib
