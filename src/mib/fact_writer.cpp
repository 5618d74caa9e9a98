#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "mib/fact_words.h"
#include "mib/facts.h"

namespace sentrel::mib {
namespace {

using Numbers = std::vector<std::uint32_t>;

std::string Dotted(std::span<const std::uint32_t> numbers) {
  std::string text;
  for (const std::uint32_t number : numbers) {
    if (!text.empty()) text += '.';
    text += std::to_string(number);
  }
  return text;
}

/// The definitions of one module that have OIDs, in the order of these.
struct Node {
  Numbers numbers;
  /// The OID as text, and how much of it is that of the parent with the dot.
  std::string oid;
  size_t parentLength = 0;
  const Entry* entry = nullptr;
};

bool IsBelow(const Node& node, std::string_view parent) {
  return node.oid.size() > parent.size() && node.oid.starts_with(parent) && parent.ends_with('.');
}

/// The entries of one module as lines.
class Writer {
 public:
  Writer(const Catalog& catalog, const CatalogModule& module, const TrapSelection* selection)
      : catalog_(catalog), module_(module), selection_(selection) {}

  std::string Write() {
    const std::vector<Node> nodes = SortedNodes();
    WriteTypes();
    for (size_t i = 0; i < nodes.size(); ++i) {
      MoveBelow(std::span(nodes).subspan(i));
      WriteNode(nodes[i]);
    }
    if (text_.empty()) return {};
    std::string head(kModuleWord);
    head.append(" ").append(module_.name);
    head.append(" ").append(std::to_string(module_.lastUpdated)) += '\n';
    return head + text_;
  }

 private:
  std::vector<const Entry*> Own() const {
    std::vector<const Entry*> own;
    for (std::uint32_t i = 0; i < module_.entries.count; ++i) {
      const std::uint32_t entry = module_.entries.begin + i;
      if (selection_ == nullptr || selection_->Has(entry)) own.push_back(&catalog_.entries[entry]);
    }
    return own;
  }

  std::vector<Node> SortedNodes() const {
    std::vector<Node> nodes;
    for (const Entry* entry : Own()) {
      if (entry->kind == Kind::Type) continue;
      Node node{NumbersOf(entry->node), {}, 0, entry};
      node.oid = Dotted(node.numbers);
      node.parentLength = node.oid.rfind('.') + 1;
      nodes.push_back(std::move(node));
    }
    std::stable_sort(nodes.begin(), nodes.end(),
                     [](const Node& a, const Node& b) { return a.numbers < b.numbers; });
    return nodes;
  }

  Numbers NumbersOf(std::uint32_t node) const {
    Numbers numbers;
    for (; node != OidTree::kRoot; node = catalog_.tree.Nodes()[node].parent) {
      numbers.push_back(catalog_.tree.Nodes()[node].number);
    }
    std::reverse(numbers.begin(), numbers.end());
    return numbers;
  }

  /// Whether a value's text needs more of the type than can stand behind the object itself.
  bool IsWrittenByName(const ResolvedType& type) const {
    return !type.name.empty() && (selection_ == nullptr || type.valueCount > 0);
  }

  void WriteTypes() {
    for (const Entry* entry : Own()) {
      if (entry->kind != Kind::Type || !IsWrittenByName(catalog_.types[entry->type])) continue;
      text_.append("type ").append(entry->name);
      WriteSyntax(catalog_.types[entry->type]);
    }
  }

  /// Says what OIDs are below from here on, where that makes those of the nodes to come shorter.
  void MoveBelow(std::span<const Node> nodes) {
    const std::string parent = nodes.front().oid.substr(0, nodes.front().parentLength);
    if (parent.empty() || parent == below_) return;
    const std::string line =
        Join({kBelowWord, " ", std::string_view(parent).substr(0, parent.size() - 1), "\n"});
    size_t now = 0;
    size_t then = line.size();
    for (const Node& node : nodes) {
      if (!IsBelow(node, parent)) break;
      now += node.oid.size() - (IsBelow(node, below_) ? below_.size() - 1 : 0);
      then += node.oid.size() - (parent.size() - 1);
    }
    if (then >= now) return;
    text_ += line;
    below_ = parent;
  }

  void WriteNode(const Node& node) {
    const Entry& entry = *node.entry;
    const bool isBelow = IsBelow(node, below_);
    const std::string_view oid = std::string_view(node.oid).substr(isBelow ? below_.size() - 1 : 0);
    text_ += Join({kKindWords[static_cast<size_t>(entry.kind)], " ", oid, " ", entry.name});
    if (entry.type == kNothing) {
      text_ += '\n';
    } else if (const ResolvedType& type = catalog_.types[entry.type]; IsWrittenByName(type)) {
      text_ += Join({" ", type.module, ":", type.name, "\n"});
    } else {
      WriteSyntax(type);
    }
    if (entry.type != kNothing) WriteUnits(catalog_.types[entry.type].units);
    WriteRelated(entry);
  }

  void WriteSyntax(const ResolvedType& type) {
    text_.append(" ").append(kBaseWords[static_cast<size_t>(type.base)]);
    if (!type.hint.empty()) text_ += Join({" \"", Printable(type.hint), "\""});
    text_ += '\n';
    for (const NamedValue& value : std::span(type.values, type.valueCount)) {
      text_ += Join({"  ", std::to_string(value.value), " ", value.label, "\n"});
    }
  }

  void WriteUnits(std::string_view units) {
    if (!units.empty()) text_ += Join({"  ", kUnitsWord, " ", Printable(units), "\n"});
  }

  void WriteRelated(const Entry& entry) {
    std::string names;
    for (std::uint32_t i = 0; i < entry.related.count; ++i) {
      const std::uint32_t winner = catalog_.names[catalog_.related[entry.related.begin + i]];
      if (winner == kNothing) continue;
      const Entry& object = catalog_.entries[winner];
      const CatalogModule& module = catalog_.modules[object.module];
      names += ' ';
      if (&module != &module_) names += Join({module.name, ":"});
      names += object.name;
    }
    if (names.empty()) return;
    text_ +=
        names == related_ ? Join({"  ", kSameWord, "\n"}) : Join({"  ", kRelatedWord, names, "\n"});
    related_ = std::move(names);
  }

  static std::string Printable(std::string_view text) {
    std::string printable(text);
    for (char& c : printable) c = c >= ' ' && c < 0x7F ? c : '?';
    return printable;
  }

  static std::string Join(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) text += part;
    return text;
  }

  const Catalog& catalog_;
  const CatalogModule& module_;
  const TrapSelection* selection_;
  std::string text_;
  /// What a dot at the beginning of an OID stands for, with the dot itself.
  std::string below_;
  /// The last list of names.
  std::string related_;
};

}  // namespace

std::string WriteFacts(const Catalog& catalog, const CatalogModule& module,
                       const TrapSelection* selection) {
  return Writer(catalog, module, selection).Write();
}

}  // namespace sentrel::mib
