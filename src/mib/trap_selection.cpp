#include "mib/trap_selection.h"

#include <map>
#include <utility>

#include "mib/enterprise.h"

namespace sentrel::mib {

TrapSelection::TrapSelection(Catalog& catalog, const std::vector<bool>& isHeld)
    : catalog_(catalog),
      isHeld_(isHeld),
      kept_(catalog.entries.size()),
      hasBelow_(catalog.names.size()) {
  PreferHeld();
  const auto& nodes = catalog_.tree.Nodes();
  for (size_t i = 1; i < nodes.size(); ++i) hasBelow_[nodes[i].parent] = true;
  for (const Entry& entry : catalog_.entries) {
    if (entry.kind == Kind::Notification) {
      KeepNode(entry.node);
      KeepRelated(entry);
    }
    if (entry.isForNotify || IsProduct(entry)) KeepNode(entry.node);
  }
  KeepOtherNames();
  KeepRows();
  KeepWayFromRoot();
  KeepTypes();
}

void TrapSelection::PreferHeld() {
  for (std::uint32_t i = 0; i < catalog_.entries.size(); ++i) {
    const Entry& entry = catalog_.entries[i];
    if (!isHeld_[entry.module] || entry.node == kNothing || entry.kind == Kind::Label) continue;
    std::uint32_t& name = catalog_.names[entry.node];
    if (name == kNothing || !isHeld_[catalog_.entries[name].module]) name = i;
  }
}

bool TrapSelection::IsProduct(const Entry& entry) const {
  const bool isKind = entry.kind == Kind::Value || entry.kind == Kind::Identity;
  return isKind && entry.node != kNothing && !hasBelow_[entry.node];
}

/// The definition that gives a node its name; null where none does.
const Entry* TrapSelection::WinnerOf(std::uint32_t node) const {
  const std::uint32_t entry = catalog_.names[node];
  return entry == kNothing ? nullptr : &catalog_.entries[entry];
}

void TrapSelection::KeepNode(std::uint32_t node) {
  if (node != kNothing && catalog_.names[node] != kNothing) kept_[catalog_.names[node]] = true;
}

void TrapSelection::KeepRelated(const Entry& entry) {
  for (std::uint32_t i = 0; i < entry.related.count; ++i) {
    KeepNode(catalog_.related[entry.related.begin + i]);
  }
}

void TrapSelection::KeepOtherNames() {
  for (size_t i = 0; i < catalog_.entries.size(); ++i) {
    const Entry& entry = catalog_.entries[i];
    if (entry.kind != Kind::Notification && !IsProduct(entry)) continue;
    const Entry* winner = WinnerOf(entry.node);
    if (winner == nullptr || isHeld_[winner->module]) continue;
    if (winner->name != entry.name) kept_[i] = true;
  }
}

void TrapSelection::KeepRows() {
  const auto& nodes = catalog_.tree.Nodes();
  const auto isRow = [this](std::uint32_t node) {
    const Entry* entry = WinnerOf(node);
    return entry != nullptr && entry->type != kNothing &&
           catalog_.types[entry->type].base == BaseType::Row;
  };
  std::vector<bool> isKeptRow(nodes.size());
  for (size_t i = 0; i < kept_.size(); ++i) {
    const Entry& entry = catalog_.entries[i];
    if (!kept_[i] || entry.kind != Kind::Object) continue;
    const std::uint32_t parent = nodes[entry.node].parent;
    if (isRow(parent)) isKeptRow[parent] = true;
  }
  for (std::uint32_t node = 1; node < nodes.size(); ++node) {
    if (isKeptRow[node]) KeepRelated(*WinnerOf(node));
    if (isKeptRow[nodes[node].parent]) KeepNode(node);
  }
}

void TrapSelection::KeepWayFromRoot() {
  const auto& nodes = catalog_.tree.Nodes();
  const auto enterprises = EnterprisesOf(catalog_.tree);
  std::vector<bool> isOnWay(nodes.size());
  for (size_t node = nodes.size() - 1; node > 0; --node) {
    const std::uint32_t name = catalog_.names[node];
    const std::uint32_t parent = nodes[node].parent;
    const bool isEnterprise =
        enterprises[node] != kNoEnterprise && enterprises[parent] == kNoEnterprise;
    if (!isOnWay[node] && !isEnterprise && (name == kNothing || !kept_[name])) continue;
    KeepNode(static_cast<std::uint32_t>(node));
    isOnWay[parent] = true;
  }
}

void TrapSelection::KeepTypes() {
  std::map<std::pair<std::string_view, std::string_view>, std::uint32_t> types;
  for (std::uint32_t i = 0; i < kept_.size(); ++i) {
    const Entry& entry = catalog_.entries[i];
    if (entry.kind == Kind::Type) types[{catalog_.modules[entry.module].name, entry.name}] = i;
  }
  for (size_t i = 0; i < kept_.size(); ++i) {
    const Entry& entry = catalog_.entries[i];
    if (!kept_[i] || entry.type == kNothing) continue;
    const ResolvedType& type = catalog_.types[entry.type];
    const auto found = types.find({type.module, type.name});
    if (found != types.end()) kept_[found->second] = true;
  }
}

}  // namespace sentrel::mib
