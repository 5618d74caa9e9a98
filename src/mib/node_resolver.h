#pragma once

#include <string>
#include <vector>

#include "mib/base_nodes.h"
#include "mib/chain_memo.h"
#include "mib/message.h"
#include "mib/module.h"
#include "mib/oid_tree.h"
#include "mib/references.h"

namespace sentrel::mib {

/// Finds the nodes of the definitions of modules, and adds them to a tree.
class NodeResolver {
 public:
  /// All must outlive the resolver; nothing else may use the tree or the messages until all nodes
  /// are resolved.
  NodeResolver(const std::vector<Module>& modules, const References& references,
               const Database& base, OidTree& tree, FileMessages& messages)
      : modules_(modules),
        references_(references),
        tree_(tree),
        messages_(messages),
        nodeOf_(modules),
        baseNodes_(base, tree) {}

  void ResolveAll();
  /// Once all are resolved: the node of definition `d` of module `m`, which is no type; kNothing
  /// where it has none.
  std::uint32_t NodeOf(std::uint32_t m, std::uint32_t d) const { return nodeOf_.At(m, d); }
  /// Once all are resolved: the node of what a definition's parent or related definition leads to;
  /// kNothing where it leads nowhere.
  std::uint32_t NodeOf(const Target& target) const;

 private:
  std::uint32_t Resolve(std::uint32_t m, std::uint32_t d, int depth);
  void TakeRelated(std::uint32_t m, const Definition& definition);
  std::uint32_t Find(std::uint32_t m, const Definition& definition, int depth);
  std::uint32_t ParentOf(std::uint32_t m, const Definition& definition, int depth);
  void Report(std::uint32_t m, const Definition& definition, std::string text);

  const std::vector<Module>& modules_;
  const References& references_;
  OidTree& tree_;
  FileMessages& messages_;
  ChainMemo nodeOf_;
  BaseNodes baseNodes_;
};

}  // namespace sentrel::mib
