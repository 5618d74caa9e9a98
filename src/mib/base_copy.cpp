#include "mib/base_copy.h"

namespace sentrel::mib {
namespace {

class BaseCopy {
 public:
  BaseCopy(const Image& base, Catalog& catalog, TypeList& types)
      : base_(base), catalog_(catalog), types_(types) {}

  void Run() {
    AddNodes();
    base_.LeaveMemory();
    AddTypes();
    AddModules();
    AddNames();
    base_.LeaveMemory();
  }

 private:
  void AddNodes();
  void AddTypes();
  void AddModules();
  void AddEntry(const format::EntryRecord& record);
  void AddNames();

  const Image& base_;
  Catalog& catalog_;
  TypeList& types_;
  /// By position in the image.
  std::vector<std::uint32_t> nodes_;
  std::vector<std::uint32_t> typeOf_;
};

void BaseCopy::AddNodes() {
  nodes_.reserve(base_.Nodes().size());
  for (const format::NodeRecord& node : base_.Nodes()) {
    const bool hasParent = !nodes_.empty() && node.parent < nodes_.size();
    nodes_.push_back(hasParent ? catalog_.tree.Child(nodes_[node.parent], node.number)
                               : OidTree::kRoot);
  }
}

void BaseCopy::AddTypes() {
  size_t count = 0;
  for (const format::TypeRecord& record : base_.Types()) count += base_.Values(record).size();
  auto& values = catalog_.ownValues.emplace_back();
  values.reserve(count);
  typeOf_.reserve(base_.Types().size());
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
    typeOf_.push_back(types_.Add(type));
  }
}

void BaseCopy::AddModules() {
  for (const format::ModuleRecord& module : base_.Modules()) {
    const auto records = base_.Entries(module);
    catalog_.modules.push_back({base_.Text(module.name),
                                module.lastUpdated,
                                {static_cast<std::uint32_t>(catalog_.entries.size()),
                                 static_cast<std::uint32_t>(records.size())}});
    for (const format::EntryRecord& record : records) AddEntry(record);
  }
}

void BaseCopy::AddEntry(const format::EntryRecord& record) {
  Entry entry;
  entry.name = base_.Text(record.name);
  entry.kind = static_cast<Kind>(record.kind);
  entry.module = static_cast<std::uint32_t>(catalog_.modules.size() - 1);
  if (record.node < nodes_.size()) entry.node = nodes_[record.node];
  if (record.type < typeOf_.size()) entry.type = typeOf_[record.type];
  entry.related.begin = static_cast<std::uint32_t>(catalog_.related.size());
  for (const std::uint32_t node : base_.Related(record)) {
    if (node < nodes_.size()) catalog_.related.push_back(nodes_[node]);
  }
  entry.related.count = static_cast<std::uint32_t>(catalog_.related.size()) - entry.related.begin;
  catalog_.entries.push_back(entry);
}

/// The base image's own claims have been decided.
void BaseCopy::AddNames() {
  catalog_.names.resize(catalog_.tree.Nodes().size(), kNothing);
  const auto nodes = base_.Nodes();
  for (size_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i].entry < catalog_.entries.size()) catalog_.names[nodes_[i]] = nodes[i].entry;
  }
}

}  // namespace

void CopyBase(const Image& base, Catalog& catalog, TypeList& types) {
  BaseCopy(base, catalog, types).Run();
}

}  // namespace sentrel::mib
