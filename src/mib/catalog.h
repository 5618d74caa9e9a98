#pragma once

#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

#include "mib/huge_pages.h"
#include "mib/module.h"
#include "mib/oid_tree.h"

namespace sentrel::mib {

/// All that is known of the values of an object, with every textual convention resolved.
struct ResolvedType {
  BaseType base = BaseType::None;
  std::string_view hint;
  std::string_view units;
  /// In the order of their numbers.
  const NamedValue* values = nullptr;
  std::uint32_t valueCount = 0;
  /// The type definition that it comes from; empty where an object itself tells its type, and
  /// where the base tells it.
  std::string_view name;
  std::string_view module;
};

inline constexpr std::uint32_t kNothing = 0xFFFFFFFF;

/// A definition whose references are resolved.
struct Entry {
  std::string_view name;
  /// In the tree; kNothing for a type.
  std::uint32_t node = kNothing;
  /// In the list of types; kNothing where no value is meant.
  std::uint32_t type = kNothing;
  std::uint32_t module = 0;
  /// The objects of a notification, or the indexes of a row, in Catalog::related.
  Span related;
  Kind kind = Kind::Value;
  bool isForNotify = false;
};

struct CatalogModule {
  std::string_view name;
  std::uint64_t lastUpdated = 0;
  /// The module's run of entries, sorted by name.
  Span entries;
};

/// A compiled collection of modules, ready to be written as an image. The texts lie in the
/// arenas of the modules and in the base that they stand on.
struct Catalog {
  OidTree tree;
  std::vector<CatalogModule> modules;
  BigVector<Entry> entries;
  BigVector<ResolvedType> types;
  /// Nodes of the tree.
  BigVector<std::uint32_t> related;
  /// For each node of the tree the entry that gives it its name; kNothing where the base names it,
  /// or nothing does.
  BigVector<std::uint32_t> names;
  /// Owns the named values that lie in no module.
  std::deque<std::vector<NamedValue>> ownValues;
};

}  // namespace sentrel::mib
