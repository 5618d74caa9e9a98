#pragma once

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <vector>

#include "mib/database.h"
#include "mib/import_resolver.h"
#include "mib/type_list.h"

namespace sentrel::mib {

/// Takes types of a base over into a list.
class BaseTypes {
 public:
  /// Their named values are added to `values`. All must outlive the list.
  BaseTypes(const Database& base, TypeList& types, std::deque<std::vector<NamedValue>>& values)
      : base_(base), types_(types), values_(values) {}

  /// The type in the list that a definition in the base has; kNothing where it has none.
  std::uint32_t Take(const Target& target);

 private:
  ResolvedType Read(const Image& image, const format::TypeRecord& record);

  const Database& base_;
  TypeList& types_;
  std::deque<std::vector<NamedValue>>& values_;
  /// By image and type.
  std::unordered_map<std::uint64_t, std::uint32_t> taken_;
};

}  // namespace sentrel::mib
