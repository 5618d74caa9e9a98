#include "mib/base_facts.h"

namespace sentrel::mib {

BaseFacts::BaseFacts(const Image& base, Catalog& catalog, TypeList& types)
    : base_(base), catalog_(catalog) {
  AddNodes();
  base_.LeaveMemory();
  AddTypes(types);
  AddModules();
  TakeNames();
  base_.LeaveMemory();
}

void BaseFacts::AddNodes() {
  nodes_.reserve(base_.Nodes().size());
  for (const format::NodeRecord& node : base_.Nodes()) {
    const bool hasParent = !nodes_.empty() && node.parent < nodes_.size();
    nodes_.push_back(hasParent ? catalog_.tree.Child(nodes_[node.parent], node.number)
                               : OidTree::kRoot);
  }
}

void BaseFacts::AddModules() {
  modules_ = static_cast<std::uint32_t>(base_.Modules().size());
  for (const format::ModuleRecord& module : base_.Modules()) {
    const auto records = base_.Entries(module);
    catalog_.modules.push_back({base_.Text(module.name),
                                module.lastUpdated,
                                {static_cast<std::uint32_t>(catalog_.entries.size()),
                                 static_cast<std::uint32_t>(records.size())}});
    for (const format::EntryRecord& record : records) AddEntry(record);
  }
  entries_ = catalog_.entries.size();
}

void BaseFacts::TakeNames() {
  catalog_.names.resize(catalog_.tree.Nodes().size(), kNothing);
  const auto nodes = base_.Nodes();
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i].entry < entries_) catalog_.names[nodes_[i]] = nodes[i].entry;
  }
}

void BaseFacts::AddEntry(const format::EntryRecord& record) {
  Entry entry;
  entry.name = base_.Text(record.name);
  entry.kind = static_cast<Kind>(record.kind);
  entry.module = static_cast<std::uint32_t>(catalog_.modules.size() - 1);
  if (record.node < nodes_.size()) entry.node = nodes_[record.node];
  if (record.type < types_.size()) entry.type = types_[record.type];
  entry.related.begin = static_cast<std::uint32_t>(catalog_.related.size());
  for (const std::uint32_t node : base_.Related(record)) {
    if (node < nodes_.size()) catalog_.related.push_back(nodes_[node]);
  }
  entry.related.count = static_cast<std::uint32_t>(catalog_.related.size()) - entry.related.begin;
  catalog_.entries.push_back(entry);
}

void BaseFacts::AddTypes(TypeList& types) {
  types_.reserve(base_.Types().size());
  std::size_t count = 0;
  for (const format::TypeRecord& record : base_.Types()) count += base_.Values(record).size();
  auto& values = catalog_.ownValues.emplace_back();
  values.reserve(count);
  for (const format::TypeRecord& record : base_.Types()) {
    ResolvedType type;
    type.base = static_cast<BaseType>(record.base);
    type.hint = base_.Text(record.hint);
    type.units = base_.Text(record.units);
    type.values = values.data() + values.size();
    for (const format::ValueRecord& value : base_.Values(record)) {
      values.push_back({value.value, base_.Text(value.label)});
    }
    type.valueCount = static_cast<std::uint32_t>(values.data() + values.size() - type.values);
    types_.push_back(types.Add(type));
  }
}

}  // namespace sentrel::mib
