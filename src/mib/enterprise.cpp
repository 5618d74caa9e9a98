#include "mib/enterprise.h"

#include <algorithm>
#include <array>
#include <map>

namespace sentrel::mib {
namespace {

constexpr std::array<std::uint32_t, 6> kEnterprises = {1, 3, 6, 1, 4, 1};
constexpr size_t kLongestName = 32;
constexpr std::array<std::string_view, 24> kLegalForms = {
    "ab",  "ag",          "as",   "bhd",          "bv",      "co",  "company", "corp",
    "inc", "corporation", "gmbh", "incorporated", "limited", "kg",  "llc",     "ltd",
    "nv",  "oy",          "plc",  "pty",          "sa",      "sdn", "spa",     "srl"};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string Lower(std::string_view word) {
  std::string lower(word);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool IsLegalForm(std::string_view word) {
  return std::find(kLegalForms.begin(), kLegalForms.end(), Lower(word)) != kLegalForms.end();
}

/// The words of letters and digits. Dots and apostrophes do not end a word: "S.p.A." is one.
std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words(1);
  int parentheses = 0;
  for (const char c : text) {
    if (c == '(') ++parentheses;
    if (c == ')' && parentheses > 0) --parentheses;
    if (parentheses == 0 && (IsLetter(c) || IsDigit(c))) {
      words.back() += c;
    } else if (c != '.' && c != '\'' && !words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

BigVector<std::uint32_t> EnterprisesOf(const OidTree& tree) {
  const auto& nodes = tree.Nodes();
  BigVector<std::uint32_t> enterprises(nodes.size(), kNoEnterprise);
  // How many numbers of 1.3.6.1.4.1 a node stands for; parents come before their children.
  std::vector<std::uint8_t> matched(nodes.size(), 0);
  for (size_t i = 1; i < nodes.size(); ++i) {
    const auto& node = nodes[i];
    const size_t before = matched[node.parent];
    if (enterprises[node.parent] != kNoEnterprise) {
      enterprises[i] = enterprises[node.parent];
    } else if (before == node.depth - 1 && before < kEnterprises.size()) {
      if (node.number == kEnterprises[before]) matched[i] = static_cast<std::uint8_t>(before + 1);
    } else if (before == kEnterprises.size()) {
      enterprises[i] = node.number;
    }
  }
  return enterprises;
}

std::uint32_t HomeOf(const Catalog& catalog, const CatalogModule& module,
                     const BigVector<std::uint32_t>& enterprises) {
  std::map<std::uint32_t, size_t> counts;
  for (std::uint32_t i = 0; i < module.entries.count; ++i) {
    const Entry& entry = catalog.entries[module.entries.begin + i];
    if (entry.node != kNothing && entry.kind != Kind::Label) ++counts[enterprises[entry.node]];
  }
  const auto most =
      std::max_element(counts.begin(), counts.end(),
                       [](const auto& a, const auto& b) { return a.second < b.second; });
  return most == counts.end() ? kNoEnterprise : most->first;
}

std::string EnterpriseName(std::string_view organisation) {
  std::vector<std::string> words = WordsOf(organisation);
  while (words.size() > 1 && IsLegalForm(words.back())) words.pop_back();
  std::string name;
  for (std::string& word : words) {
    if (!name.empty()) {
      word.front() = Upper(word.front());
      if (name.size() + word.size() > kLongestName) break;
    } else if (std::all_of(word.begin(), word.end(), [](char c) { return Upper(c) == c; })) {
      word = Lower(word);
    } else {
      word.front() = Lower(word.substr(0, 1)).front();
    }
    name += word.substr(0, kLongestName);
  }
  if (name.empty() || !std::any_of(name.begin(), name.end(), IsLetter)) return {};
  return IsDigit(name.front()) ? "n" + name : name;
}

}  // namespace sentrel::mib
