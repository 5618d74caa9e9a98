#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "mib/fact_words.h"
#include "mib/facts.h"

namespace sentrel::mib {
namespace {

using Numbers = std::vector<std::uint32_t>;

/// The entries of one module as lines.
class Writer {
 public:
  Writer(const Catalog& catalog, const CatalogModule& module)
      : catalog_(catalog), module_(module) {}

  std::string Write() {
    text_.append("module ").append(module_.name).append(" ");
    text_.append(std::to_string(module_.lastUpdated)) += '\n';
    for (const Entry& entry : Own()) {
      if (entry.kind == Kind::Type) WriteType(entry);
    }
    for (const auto& [numbers, entry] : SortedNodes()) WriteNode(numbers, *entry);
    return std::move(text_);
  }

 private:
  std::span<const Entry> Own() const {
    return std::span(catalog_.entries).subspan(module_.entries.begin, module_.entries.count);
  }

  std::vector<std::pair<Numbers, const Entry*>> SortedNodes() const {
    std::vector<std::pair<Numbers, const Entry*>> nodes;
    for (const Entry& entry : Own()) {
      if (entry.kind != Kind::Type) nodes.emplace_back(NumbersOf(entry.node), &entry);
    }
    std::stable_sort(nodes.begin(), nodes.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
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

  void WriteType(const Entry& entry) {
    text_.append("type ").append(entry.name);
    WriteSyntax(catalog_.types[entry.type]);
  }

  void WriteNode(const Numbers& numbers, const Entry& entry) {
    text_.append(kKindWords[static_cast<size_t>(entry.kind)]);
    char before = ' ';
    for (const std::uint32_t number : numbers) {
      (text_ += before).append(std::to_string(number));
      before = '.';
    }
    text_.append(" ").append(entry.name);
    if (entry.type == kNothing) {
      text_ += '\n';
    } else if (const ResolvedType& type = catalog_.types[entry.type]; type.name.empty()) {
      WriteSyntax(type);
    } else {
      text_.append(" ").append(type.module).append(":").append(type.name) += '\n';
    }
  }

  void WriteSyntax(const ResolvedType& type) {
    text_.append(" ").append(kBaseWords[static_cast<size_t>(type.base)]);
    if (!type.hint.empty()) WriteHint(type.hint);
    text_ += '\n';
    for (std::uint32_t i = 0; i < type.valueCount; ++i) {
      text_.append("  ").append(std::to_string(type.values[i].value));
      text_.append(" ").append(type.values[i].label) += '\n';
    }
  }

  void WriteHint(std::string_view hint) {
    text_.append(" \"");
    for (const char c : hint) text_ += c >= ' ' && c < 0x7F ? c : '?';
    text_ += '"';
  }

  const Catalog& catalog_;
  const CatalogModule& module_;
  std::string text_;
};

}  // namespace

std::string WriteFacts(const Catalog& catalog, const CatalogModule& module) {
  return Writer(catalog, module).Write();
}

}  // namespace sentrel::mib
