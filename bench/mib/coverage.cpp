// coverage IMAGE FOLDER...: how much of what the modules in the folders define the image names as
// one of them does. Prints three shares and fails where one is too small. What is not named goes to
// the file SENTREL_UNNAMED, if that is set.
//
// A notification counts if both forms of its OID have its name, with the zero of version 1 and
// without it; where another definition has one of them, the other one is enough. An object that
// notifications carry counts if it has named values as well where the modules give it some. A
// product is a value or an OBJECT-IDENTITY with nothing below it, in a part of an enterprise's tree
// whose name tells that products are listed there.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "mib/collection.h"
#include "mib/enterprise.h"
#include "mib/lookup.h"
#include "mib/sources.h"

namespace {

using namespace sentrel::mib;

struct Share {
  const char* what;
  double least;
  size_t all = 0;
  size_t named = 0;

  double Percent() const {
    return all == 0 ? 0 : 100.0 * static_cast<double>(named) / static_cast<double>(all);
  }
};

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return std::tolower(c); });
  return lower;
}

class Coverage {
 public:
  Coverage(const Catalog& catalog, const Database& database)
      : catalog_(catalog), database_(database), enterprises_(EnterprisesOf(catalog.tree)) {
    const char* file = std::getenv("SENTREL_UNNAMED");
    if (file != nullptr) unnamed_.open(file);
    const size_t nodes = catalog.tree.Nodes().size();
    entries_.resize(nodes);
    for (const Entry& entry : catalog.entries) {
      if (entry.node != kNothing && entry.kind != Kind::Label)
        entries_[entry.node].push_back(&entry);
    }
    hasBelow_.resize(nodes);
    for (size_t i = 1; i < nodes; ++i) hasBelow_[catalog.tree.Nodes()[i].parent] = true;
  }

  std::array<Share, 3> Measure() {
    std::array<Share, 3> shares = {Share{"notifications", 99.5}, Share{"their objects", 99.0},
                                   Share{"products", 95.0}};
    std::set<std::uint32_t> objects;
    for (std::uint32_t node = 1; node < entries_.size(); ++node) {
      bool isNotification = false;
      for (const Entry* entry : entries_[node]) {
        if (entry->kind != Kind::Notification) continue;
        isNotification = true;
        for (std::uint32_t i = 0; i < entry->related.count; ++i) {
          objects.insert(catalog_.related[entry->related.begin + i]);
        }
      }
      if (isNotification) Count(shares[0], node, IsNamedInBothForms(node));
      if (IsProduct(node)) Count(shares[2], node, IsNamed(node, OidOf(node)));
    }
    for (const std::uint32_t node : objects) {
      if (!entries_[node].empty())
        Count(shares[1], node, IsNamed(node, OidOf(node)) && HasValues(node));
    }
    return shares;
  }

 private:
  void Count(Share& share, std::uint32_t node, bool isNamed) {
    ++share.all;
    if (isNamed) ++share.named;
    if (isNamed || !unnamed_.is_open()) return;
    unnamed_ << share.what << '\t' << OidOf(node) << '\t' << LookUp(database_, OidOf(node)).name;
    for (const Entry* entry : entries_[node]) {
      unnamed_ << '\t' << catalog_.modules[entry->module].name << ':' << entry->name;
    }
    unnamed_ << '\n';
  }

  std::string OidOf(std::uint32_t node) const {
    if (node == OidTree::kRoot) return {};
    std::string oid = OidOf(catalog_.tree.Nodes()[node].parent);
    if (!oid.empty()) oid.push_back('.');
    return oid.append(std::to_string(catalog_.tree.Nodes()[node].number));
  }

  bool IsNamed(std::uint32_t node, const std::string& oid) const {
    const std::string name = LookUp(database_, oid).name;
    return std::any_of(entries_[node].begin(), entries_[node].end(),
                       [&](const Entry* entry) { return entry->name == name; });
  }

  bool IsNamedInBothForms(std::uint32_t node) const {
    const std::string oid = OidOf(node);
    if (!IsNamed(node, oid)) return false;
    const auto& tree = catalog_.tree.Nodes();
    const std::uint32_t parent = tree[node].parent;
    const bool hasZero = tree[parent].number == 0;
    std::string other = OidOf(hasZero ? tree[parent].parent : parent);
    other.append(hasZero ? "." : ".0.").append(std::to_string(tree[node].number));
    const std::string name = LookUp(database_, other).name;
    // Defined as something else: then it rightly has that name.
    return IsNamed(node, other) || name.find('.') == std::string::npos;
  }

  bool HasValues(std::uint32_t node) const {
    const std::uint32_t winner = catalog_.names[node];
    const std::uint32_t type = winner == kNothing ? kNothing : catalog_.entries[winner].type;
    if (type == kNothing || catalog_.types[type].valueCount == 0) return true;
    return LookUp(database_, OidOf(node)).type.record->valueCount > 0;
  }

  bool IsProduct(std::uint32_t node) const {
    if (hasBelow_[node] || enterprises_[node] == kNoEnterprise || entries_[node].empty())
      return false;
    const Kind kind = entries_[node].front()->kind;
    if (kind != Kind::Value && kind != Kind::Identity) return false;
    const auto& tree = catalog_.tree.Nodes();
    for (node = tree[node].parent; enterprises_[node] != kNoEnterprise; node = tree[node].parent) {
      if (std::any_of(entries_[node].begin(), entries_[node].end(),
                      [](const Entry* entry) { return ListsProducts(entry->name); })) {
        return true;
      }
    }
    return false;
  }

  static bool ListsProducts(std::string_view name) {
    constexpr std::array<std::string_view, 8> kWords = {"product",     "model",       "platform",
                                                        "sysobjectid", "chassis",     "devices",
                                                        "hardware",    "registration"};
    const std::string lower = Lower(name);
    return std::any_of(kWords.begin(), kWords.end(), [&](std::string_view word) {
      return lower.find(word) != std::string::npos;
    });
  }

  const Catalog& catalog_;
  const Database& database_;
  const BigVector<std::uint32_t> enterprises_;
  std::ofstream unnamed_;
  /// By node: what defines it.
  std::vector<std::vector<const Entry*>> entries_;
  std::vector<bool> hasBelow_;
};

}  // namespace

int main(int count, char** words) {
  if (count < 3) {
    std::fputs("usage: coverage IMAGE FOLDER...\n", stderr);
    return 2;
  }
  std::vector<Folder> folders;
  for (int i = 2; i < count; ++i) folders.push_back({words[i], true});
  Collection collection(FindSources(folders).files, {});
  const Catalog catalog = collection.Compile({});
  const Database database(Image::Open(words[1]));
  bool isEnough = true;
  for (const Share& share : Coverage(catalog, database).Measure()) {
    std::printf("%-14s %6zu of %6zu  %7.3f %%, at least %.1f %%\n", share.what, share.named,
                share.all, share.Percent(), share.least);
    isEnough = isEnough && share.Percent() >= share.least;
  }
  return isEnough ? 0 : 1;
}
