#include "mib/resolver.h"

#include <algorithm>
#include <future>
#include <iterator>
#include <map>
#include <tuple>

#include "mib/enterprise.h"
#include "mib/token_reader.h"
#include "mib/type_list.h"

namespace sentrel::mib {
namespace {

/// Marks of definitions whose node or type is not known yet, is being looked for, or cannot be
/// had.
constexpr std::uint32_t kUnset = 0xFFFFFFFE;
constexpr std::uint32_t kBusy = 0xFFFFFFFD;

/// How long a chain of references may be before it counts as endless.
constexpr int kLongestChain = 256;

/// Whether two definitions of one module give one name to two nodes.
bool AreTwins(const Entry& a, const Entry& b) {
  const auto names = [](const Entry& entry) {
    return entry.node != kNothing && entry.kind != Kind::Label;
  };
  return a.name == b.name && a.node != b.node && names(a) && names(b);
}

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

/// Makes one catalog, once: first the base image, then the nodes and types of all modules, then the
/// modules' entries in the order of the list.
///
/// Threads: nodes are resolved in the caller's thread and types in another. Meanwhile nodes write
/// only the tree, nodeOf_ and messages_; types write only types_ with catalog_.types, typeOf_,
/// plainTypes_, typeMessages_ and the order of the modules' named values. Both read the rest, which
/// no longer changes until both are done.
///
/// Invariants: each node and each type is looked for at most once, and a chain of references that
/// leads back to itself is cut with one message. No entry is added to the catalog before all nodes
/// and types are known, except those of the base image, which are its first.
class Resolver {
 public:
  Resolver(std::vector<Module>& modules, const Image& base, std::vector<FileMessage>& messages)
      : modules_(modules), base_(base), messages_(messages), types_(catalog_.types) {}

  Catalog Run();

 private:
  void AddBase();
  void AddBaseEntry(const format::EntryRecord& record);
  void AddBaseTypes();
  void ResolveNodes();
  void ResolveTypes();
  void AddModule(std::uint32_t m);
  /// The base image's entries are the first of the catalog, in the same order.
  const Entry& BaseEntry(const Target& target) const {
    static const Entry kNone;
    return target.definition < baseEntries_ ? catalog_.entries[target.definition] : kNone;
  }
  Target TargetOf(std::uint32_t m, Reference reference) const;
  std::uint32_t NodeOf(std::uint32_t m, std::uint32_t d, int depth);
  std::uint32_t FindNode(std::uint32_t m, const Definition& definition, int depth);
  std::uint32_t ParentOf(std::uint32_t m, const Definition& definition, int depth);
  std::uint32_t TypeOf(std::uint32_t m, std::uint32_t d, int depth);
  std::uint32_t FindType(std::uint32_t m, const Definition& definition, int depth);
  /// The type of a row is never the type of a value.
  bool IsWorthKeeping(std::uint32_t type) const {
    return type != kNothing && catalog_.types[type].base != BaseType::Row;
  }
  Span RelatedOf(std::uint32_t m, const Definition& definition);
  bool IsInstance(std::uint32_t m, const Definition& definition) const;
  std::uint32_t Claim(std::uint32_t entry);
  void ReportRival(std::uint32_t m, const Definition& definition, const Entry& rival);
  auto RankOf(const Entry& entry) const;
  void Report(std::uint32_t m, std::uint32_t line, std::string text) {
    messages_.push_back({modules_[m].file, {{}, line, std::move(text)}});
  }
  void ReportType(std::uint32_t m, std::uint32_t line, std::string text) {
    typeMessages_.push_back({modules_[m].file, {{}, line, std::move(text)}});
  }

  std::vector<Module>& modules_;
  const Image& base_;
  std::vector<FileMessage>& messages_;
  /// Those about types, which are resolved in a thread of their own.
  std::vector<FileMessage> typeMessages_;
  Catalog catalog_;
  TypeList types_;
  std::vector<std::vector<Target>> imports_;
  /// By module and definition.
  std::vector<std::vector<std::uint32_t>> nodeOf_;
  std::vector<std::vector<std::uint32_t>> typeOf_;
  /// By base type, for those that say no more than that.
  std::vector<std::uint32_t> plainTypes_ = std::vector<std::uint32_t>(256, kNothing);
  /// By position in the base image.
  std::vector<std::uint32_t> baseNodes_;
  std::vector<std::uint32_t> baseTypes_;
  std::uint32_t baseModules_ = 0;
  /// By node, once all nodes are known.
  BigVector<std::uint32_t> enterprises_;
  /// By module that is not in the base image: the enterprise whose module it is.
  std::vector<std::uint32_t> homes_;
  size_t baseEntries_ = 0;
};

Catalog Resolver::Run() {
  size_t definitions = 0;
  for (const Module& module : modules_) definitions += module.definitions.size();
  catalog_.tree.Reserve(base_.Nodes().size() + definitions);
  size_t entries = definitions;
  for (const format::ModuleRecord& module : base_.Modules()) {
    entries += base_.Entries(module).size();
  }
  catalog_.entries.reserve(entries);
  baseNodes_.reserve(base_.Nodes().size());
  baseTypes_.reserve(base_.Types().size());
  AddBase();
  ImportResolver importResolver(modules_, base_);
  imports_ = importResolver.ResolveAll();
  for (FileMessage& message : importResolver.TakeMessages()) {
    messages_.push_back(std::move(message));
  }
  for (const Module& module : modules_) {
    nodeOf_.emplace_back(module.definitions.size(), kUnset);
    typeOf_.emplace_back(module.definitions.size(), kUnset);
  }
  // Neither needs what the other finds.
  auto types = std::async(std::launch::async, [this] { ResolveTypes(); });
  ResolveNodes();
  types.get();
  std::move(typeMessages_.begin(), typeMessages_.end(), std::back_inserter(messages_));
  enterprises_ = EnterprisesOf(catalog_.tree);
  catalog_.names.resize(catalog_.tree.Nodes().size(), kNothing);
  for (std::uint32_t m = 0; m < modules_.size(); ++m) AddModule(m);
  return std::move(catalog_);
}

/// Takes over everything that the base image holds.
void Resolver::AddBase() {
  for (const format::NodeRecord& node : base_.Nodes()) {
    const bool hasParent = !baseNodes_.empty() && node.parent < baseNodes_.size();
    baseNodes_.push_back(hasParent ? catalog_.tree.Child(baseNodes_[node.parent], node.number)
                                   : OidTree::kRoot);
  }
  base_.LeaveMemory();
  AddBaseTypes();
  baseModules_ = static_cast<std::uint32_t>(base_.Modules().size());
  for (const format::ModuleRecord& module : base_.Modules()) {
    const auto records = base_.Entries(module);
    catalog_.modules.push_back({base_.Text(module.name),
                                module.lastUpdated,
                                {static_cast<std::uint32_t>(catalog_.entries.size()),
                                 static_cast<std::uint32_t>(records.size())}});
    for (const format::EntryRecord& record : records) AddBaseEntry(record);
  }
  baseEntries_ = catalog_.entries.size();
  // The base image's own claims have been decided.
  catalog_.names.resize(catalog_.tree.Nodes().size(), kNothing);
  const auto nodes = base_.Nodes();
  for (size_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i].entry < baseEntries_) catalog_.names[baseNodes_[i]] = nodes[i].entry;
  }
  base_.LeaveMemory();
}

void Resolver::AddBaseEntry(const format::EntryRecord& record) {
  Entry entry;
  entry.name = base_.Text(record.name);
  entry.kind = static_cast<Kind>(record.kind);
  entry.module = static_cast<std::uint32_t>(catalog_.modules.size() - 1);
  if (record.node < baseNodes_.size()) entry.node = baseNodes_[record.node];
  if (record.type < baseTypes_.size()) entry.type = baseTypes_[record.type];
  entry.related.begin = static_cast<std::uint32_t>(catalog_.related.size());
  for (const std::uint32_t node : base_.Related(record)) {
    if (node < baseNodes_.size()) catalog_.related.push_back(baseNodes_[node]);
  }
  entry.related.count = static_cast<std::uint32_t>(catalog_.related.size()) - entry.related.begin;
  catalog_.entries.push_back(entry);
}

void Resolver::AddBaseTypes() {
  size_t count = 0;
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
    baseTypes_.push_back(types_.Add(type));
  }
}

void Resolver::ResolveNodes() {
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (const std::uint32_t d : modules_[m].byName) {
      if (modules_[m].definitions[d].kind != Kind::Type) NodeOf(m, d, 0);
    }
  }
}

void Resolver::ResolveTypes() {
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (const std::uint32_t d : modules_[m].byName) {
      const Kind kind = modules_[m].definitions[d].kind;
      if (kind == Kind::Type || kind == Kind::Object) TypeOf(m, d, 0);
    }
  }
}

/// Once all nodes and types are resolved.
void Resolver::AddModule(std::uint32_t m) {
  const Module& module = modules_[m];
  const auto begin = static_cast<std::uint32_t>(catalog_.entries.size());
  catalog_.modules.push_back({module.name, module.lastUpdated, {begin, 0}});
  std::vector<std::uint32_t> added;
  for (const std::uint32_t d : module.byName) {
    const Definition& definition = module.definitions[d];
    Entry entry;
    entry.name = definition.name;
    entry.kind = definition.kind;
    entry.isForNotify = definition.isForNotify;
    entry.related = RelatedOf(m, definition);
    entry.module = static_cast<std::uint32_t>(catalog_.modules.size() - 1);
    if (entry.kind != Kind::Type) {
      entry.node = nodeOf_[m][d];
      if (entry.node == kNothing || IsInstance(m, definition)) continue;
    }
    if (entry.kind == Kind::Type || entry.kind == Kind::Object) entry.type = typeOf_[m][d];
    if (entry.kind == Kind::Type && !IsWorthKeeping(entry.type)) continue;
    if (catalog_.entries.size() > begin && AreTwins(catalog_.entries.back(), entry)) {
      Report(m, definition.line, Quote(entry.name) + " has another OID in the same module");
    }
    catalog_.entries.push_back(entry);
    added.push_back(d);
  }
  catalog_.modules.back().entries.count = static_cast<std::uint32_t>(added.size());
  homes_.push_back(HomeOf(catalog_, catalog_.modules.back(), enterprises_));
  for (std::uint32_t i = 0; i < added.size(); ++i) {
    const std::uint32_t rival = Claim(begin + i);
    if (rival != kNothing) {
      ReportRival(m, module.definitions[added[i]], catalog_.entries[rival]);
    }
  }
}

Span Resolver::RelatedOf(std::uint32_t m, const Definition& definition) {
  const auto begin = static_cast<std::uint32_t>(catalog_.related.size());
  for (std::uint32_t i = 0; i < definition.related.count; ++i) {
    const Target target = TargetOf(m, modules_[m].related[definition.related.begin + i]);
    std::uint32_t node = kNothing;
    if (target.place == Target::Place::Module) node = nodeOf_[target.module][target.definition];
    if (target.place == Target::Place::Base) node = BaseEntry(target).node;
    if (node != kNothing) catalog_.related.push_back(node);
  }
  return {begin, static_cast<std::uint32_t>(catalog_.related.size()) - begin};
}

Target Resolver::TargetOf(std::uint32_t m, Reference reference) const {
  if (reference.IsNone()) return {};
  if (reference.IsLocal()) {
    return {Target::Place::Module, m, static_cast<std::uint32_t>(reference.Local())};
  }
  return imports_[m][reference.Import()];
}

std::uint32_t Resolver::NodeOf(std::uint32_t m, std::uint32_t d, int depth) {
  std::uint32_t& node = nodeOf_[m][d];
  if (node != kUnset && node != kBusy) return node;
  const Definition& definition = modules_[m].definitions[d];
  if (node == kBusy || depth > kLongestChain) {
    Report(m, definition.line, "the OID of " + Quote(definition.name) + " leads back to itself");
    return node = kNothing;
  }
  node = kBusy;
  const std::uint32_t found = FindNode(m, definition, depth);
  return nodeOf_[m][d] = found;
}

std::uint32_t Resolver::FindNode(std::uint32_t m, const Definition& definition, int depth) {
  std::uint32_t node = definition.parent.IsNone() ? OidTree::kRoot : ParentOf(m, definition, depth);
  if (node == kNothing) return kNothing;
  const std::uint32_t length = catalog_.tree.Nodes()[node].depth + definition.numbers.count;
  if (length > OidTree::kDeepest) {
    Report(m, definition.line, "the OID of " + Quote(definition.name) + " has over 128 numbers");
    return kNothing;
  }
  const std::uint32_t* numbers = modules_[m].numbers.data() + definition.numbers.begin;
  for (std::uint32_t i = 0; i < definition.numbers.count; ++i) {
    node = catalog_.tree.Child(node, numbers[i]);
  }
  return node;
}

std::uint32_t Resolver::ParentOf(std::uint32_t m, const Definition& definition, int depth) {
  const Target target = TargetOf(m, definition.parent);
  if (target.place == Target::Place::Module)
    return NodeOf(target.module, target.definition, depth + 1);
  if (target.place == Target::Place::Base) return BaseEntry(target).node;
  const std::string_view name = modules_[m].imports[definition.parent.Import()].name;
  if (const std::uint32_t root = RootOf(name, catalog_.tree); root != kNothing) return root;
  Report(m, definition.line,
         Quote(definition.name) + " has no place: its parent " + Quote(name) + " is unknown");
  return kNothing;
}

std::uint32_t Resolver::TypeOf(std::uint32_t m, std::uint32_t d, int depth) {
  std::uint32_t& type = typeOf_[m][d];
  if (type != kUnset && type != kBusy) return type;
  const Definition& definition = modules_[m].definitions[d];
  if (type == kBusy || depth > kLongestChain) {
    ReportType(m, definition.line,
               "the type of " + Quote(definition.name) + " leads back to itself");
    return type = kNothing;
  }
  type = kBusy;
  const std::uint32_t found = FindType(m, definition, depth);
  return typeOf_[m][d] = found;
}

std::uint32_t Resolver::FindType(std::uint32_t m, const Definition& definition, int depth) {
  ResolvedType type;
  type.base = definition.base;
  const Target target = TargetOf(m, definition.type);
  std::uint32_t named = kNothing;
  if (target.place == Target::Place::Module) {
    named = TypeOf(target.module, target.definition, depth + 1);
  } else if (target.place == Target::Place::Base) {
    named = BaseEntry(target).type;
  } else if (!definition.type.IsNone()) {
    const std::string_view name = modules_[m].imports[definition.type.Import()].name;
    ReportType(m, definition.line, "type " + Quote(name) + " is unknown");
  }
  if (named != kNothing) {
    const bool isSame = definition.values.count == 0 && definition.hint.empty();
    if (isSame && definition.units.empty()) return named;
    type = catalog_.types[named];
    if (!isSame) type.name = type.module = {};
  }
  type.units = definition.units;
  if (definition.kind == Kind::Type && type.base != BaseType::Row) {
    type.name = definition.name;
    type.module = modules_[m].name;
  }
  if (!definition.hint.empty()) type.hint = definition.hint;
  if (definition.values.count > 0 && type.base != BaseType::Bits) {
    NamedValue* values = modules_[m].values.data() + definition.values.begin;
    std::stable_sort(values, values + definition.values.count,
                     [](const auto& a, const auto& b) { return a.value < b.value; });
    type.values = values;
    type.valueCount = definition.values.count;
    if (type.base == BaseType::None) type.base = BaseType::Integer;
  }
  const bool isPlain =
      type.valueCount == 0 && type.hint.empty() && type.units.empty() && type.name.empty();
  if (!isPlain) return types_.Add(type);
  std::uint32_t& plain = plainTypes_[static_cast<size_t>(type.base)];
  if (plain == kNothing) plain = types_.Add(type);
  return plain;
}

/// Whether a value only names the one instance of a scalar object, { sysUpTime 0 }: that instance
/// keeps its name as an instance.
bool Resolver::IsInstance(std::uint32_t m, const Definition& definition) const {
  if (definition.kind != Kind::Value || definition.numbers.count != 1 ||
      modules_[m].numbers[definition.numbers.begin] != 0) {
    return false;
  }
  const Target target = TargetOf(m, definition.parent);
  if (target.place == Target::Place::Base) {
    return BaseEntry(target).kind == Kind::Object;
  }
  return target.IsFound() &&
         modules_[target.module].definitions[target.definition].kind == Kind::Object;
}

/// Greater is stronger.
auto Resolver::RankOf(const Entry& entry) const {
  const auto weight = entry.kind == Kind::Label ? 0 : entry.kind == Kind::Value ? 1 : 2;
  const bool isOwn = entry.module >= baseModules_;
  const CatalogModule& module = catalog_.modules[entry.module];
  const bool isOwner = isOwn && enterprises_[entry.node] == homes_[entry.module - baseModules_];
  const bool isProgram = module.name == kProgramModule && (!isOwn || baseModules_ == 0);
  return std::make_tuple(isProgram, weight > 0, isOwn, isOwner, weight, module.lastUpdated);
}

/// Gives the entry's node its name if the entry is the strongest so far. Returns the other entry
/// that claims the node, if there is one.
std::uint32_t Resolver::Claim(std::uint32_t index) {
  const Entry& entry = catalog_.entries[index];
  if (entry.node == kNothing || entry.node == OidTree::kRoot) return kNothing;
  std::uint32_t& name = catalog_.names[entry.node];
  const std::uint32_t rival = name;
  if (rival == kNothing || RankOf(entry) > RankOf(catalog_.entries[rival])) name = index;
  return rival;
}

void Resolver::ReportRival(std::uint32_t m, const Definition& definition, const Entry& rival) {
  // A value without numbers of its own, { other }, is meant as a second name.
  if (rival.name == definition.name || definition.numbers.count == 0 || rival.kind == Kind::Label ||
      definition.kind == Kind::Label || rival.module < baseModules_) {
    return;
  }
  Report(m, definition.line,
         Quote(definition.name) + " has the same OID as " + Quote(rival.name) + " of module " +
             Quote(catalog_.modules[rival.module].name));
}

}  // namespace

Catalog Resolve(std::vector<Module>& modules, const Image& base,
                std::vector<FileMessage>& messages) {
  return Resolver(modules, base, messages).Run();
}

}  // namespace sentrel::mib
