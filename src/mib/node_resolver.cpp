#include "mib/node_resolver.h"

#include <map>

#include "mib/token_reader.h"

namespace sentrel::mib {
namespace {

/// The node of a name that needs no module: those that ASN.1 itself knows, and those that modules
/// take from the SMI (RFC 2578 section 2), should even that be missing. kNothing for any other.
std::uint32_t RootOf(std::string_view name, OidTree& tree) {
  static const std::map<std::string_view, std::vector<std::uint32_t>> kRoots = {
      {"ccitt", {0}},
      {"itu-t", {0}},
      {"iso", {1}},
      {"joint-iso-ccitt", {2}},
      {"joint-iso-itu-t", {2}},
      {"internet", {1, 3, 6, 1}},
      {"mgmt", {1, 3, 6, 1, 2}},
      {"mib-2", {1, 3, 6, 1, 2, 1}},
      {"transmission", {1, 3, 6, 1, 2, 1, 10}},
      {"experimental", {1, 3, 6, 1, 3}},
      {"private", {1, 3, 6, 1, 4}},
      {"enterprises", {1, 3, 6, 1, 4, 1}},
      {"snmpV2", {1, 3, 6, 1, 6}},
      {"snmpModules", {1, 3, 6, 1, 6, 3}}};
  const auto found = kRoots.find(name);
  if (found == kRoots.end()) return kNothing;
  std::uint32_t node = OidTree::kRoot;
  for (const std::uint32_t number : found->second) node = tree.Child(node, number);
  return node;
}

}  // namespace

void NodeResolver::ResolveAll() {
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (const std::uint32_t d : modules_[m].byName) {
      const Definition& definition = modules_[m].definitions[d];
      if (definition.kind != Kind::Type) Resolve(m, d, 0);
      TakeRelated(m, definition);
    }
  }
}

std::uint32_t NodeResolver::NodeOf(const Target& target) const {
  if (target.place == Target::Place::Module) return NodeOf(target.module, target.definition);
  return target.place == Target::Place::Base ? baseNodes_.At(target) : kNothing;
}

/// Sees to it that the tree has the related nodes that the base defines.
void NodeResolver::TakeRelated(std::uint32_t m, const Definition& definition) {
  for (std::uint32_t i = 0; i < definition.related.count; ++i) {
    const Reference related = modules_[m].related[definition.related.begin + i];
    const Target target = references_.TargetOf(m, related);
    if (target.place == Target::Place::Base) baseNodes_.Take(target);
  }
}

std::uint32_t NodeResolver::Resolve(std::uint32_t m, std::uint32_t d, int depth) {
  const Definition& definition = modules_[m].definitions[d];
  return nodeOf_.Get(
      m, d, depth, [&] { return Find(m, definition, depth); },
      [&] {
        Report(m, definition, "the OID of " + Quote(definition.name) + " leads back to itself");
      });
}

std::uint32_t NodeResolver::Find(std::uint32_t m, const Definition& definition, int depth) {
  std::uint32_t node = definition.parent.IsNone() ? OidTree::kRoot : ParentOf(m, definition, depth);
  if (node == kNothing) return kNothing;
  const std::uint32_t length = tree_.Nodes()[node].depth + definition.numbers.count;
  if (length > OidTree::kDeepest) {
    Report(m, definition, "the OID of " + Quote(definition.name) + " has over 128 numbers");
    return kNothing;
  }
  const std::uint32_t* numbers = modules_[m].numbers.data() + definition.numbers.begin;
  for (std::uint32_t i = 0; i < definition.numbers.count; ++i) {
    node = tree_.Child(node, numbers[i]);
  }
  return node;
}

std::uint32_t NodeResolver::ParentOf(std::uint32_t m, const Definition& definition, int depth) {
  const Target target = references_.TargetOf(m, definition.parent);
  if (target.place == Target::Place::Module) {
    return Resolve(target.module, target.definition, depth + 1);
  }
  if (target.place == Target::Place::Base) return baseNodes_.Take(target);
  const std::string_view name = modules_[m].imports[definition.parent.Import()].name;
  if (const std::uint32_t root = RootOf(name, tree_); root != kNothing) return root;
  Report(m, definition,
         Quote(definition.name) + " has no place: its parent " + Quote(name) + " is unknown");
  return kNothing;
}

void NodeResolver::Report(std::uint32_t m, const Definition& definition, std::string text) {
  messages_.push_back({modules_[m].file, {{}, definition.line, std::move(text)}});
}

}  // namespace sentrel::mib
