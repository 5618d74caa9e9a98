#pragma once

#include <string>
#include <vector>

#include "mib/base_types.h"
#include "mib/chain_memo.h"
#include "mib/message.h"
#include "mib/module.h"
#include "mib/references.h"
#include "mib/type_list.h"

namespace sentrel::mib {

/// Finds what the types and objects of modules hold, through all textual conventions, and adds it
/// to a list of types. Puts the modules' named values into the order of their numbers.
class TypeResolver {
 public:
  /// All must outlive the resolver; nothing else may use the list of types, the named values or the
  /// messages until all types are resolved.
  TypeResolver(std::vector<Module>& modules, const References& references, BaseTypes& baseTypes,
               TypeList& types, FileMessages& messages)
      : modules_(modules),
        references_(references),
        baseTypes_(baseTypes),
        types_(types),
        messages_(messages),
        typeOf_(modules) {}

  void ResolveAll();
  /// Once all are resolved: the type of definition `d` of module `m`, which is a type or an object;
  /// kNothing where it is unknown.
  std::uint32_t TypeOf(std::uint32_t m, std::uint32_t d) const { return typeOf_.At(m, d); }

 private:
  std::uint32_t Resolve(std::uint32_t m, std::uint32_t d, int depth);
  std::uint32_t Find(std::uint32_t m, const Definition& definition, int depth);
  std::uint32_t NamedType(std::uint32_t m, const Definition& definition, int depth);
  void TakeOwnValues(ResolvedType& type, std::uint32_t m, const Definition& definition);
  std::uint32_t Add(const ResolvedType& type);
  void Report(std::uint32_t m, const Definition& definition, std::string text);

  std::vector<Module>& modules_;
  const References& references_;
  BaseTypes& baseTypes_;
  TypeList& types_;
  FileMessages& messages_;
  ChainMemo typeOf_;
  /// By base type, for those that say no more than that.
  std::vector<std::uint32_t> plainTypes_ = std::vector<std::uint32_t>(256, kNothing);
};

}  // namespace sentrel::mib
