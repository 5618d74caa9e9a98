#include "mib/base_names.h"

#include <algorithm>

namespace sentrel::mib {
namespace {

/// The entries of kProgramModule.
std::span<const format::EntryRecord> ProgramEntries(const Image& image) {
  for (const format::ModuleRecord& module : image.Modules()) {
    if (image.Text(module.name) == kProgramModule) return image.Entries(module);
  }
  return {};
}

/// Overwrites the names of the nodes that the image names.
void AddNames(const OidTree& tree, const Image& image, BigVector<BaseName>& names) {
  const auto program = ProgramEntries(image);
  const auto& nodes = tree.Nodes();
  // Where the nodes of the tree are in the image; parents come before their children.
  BigVector<std::uint32_t> places(nodes.size(), kNothing);
  places[OidTree::kRoot] = 0;
  for (size_t i = 1; i < nodes.size(); ++i) {
    const std::uint32_t parent = places[nodes[i].parent];
    if (parent == kNothing) continue;
    places[i] = image.ChildOf(parent, nodes[i].number);
    if (places[i] == kNothing) continue;
    const format::EntryRecord& entry = image.EntryOf(places[i]);
    if (entry.name == kNothing) continue;
    const bool isProgram = &entry >= program.data() && &entry < program.data() + program.size();
    const bool isLabel = entry.kind == static_cast<std::uint16_t>(Kind::Label);
    names[i] = isProgram ? BaseName::Program : isLabel ? BaseName::Label : BaseName::Definition;
  }
}

}  // namespace

BigVector<BaseName> BaseNamesOf(const OidTree& tree, const Database& base) {
  BigVector<BaseName> names(tree.Nodes().size(), BaseName::None);
  for (const auto& image : base.Images()) AddNames(tree, *image, names);
  return names;
}

}  // namespace sentrel::mib
