#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "mib/base_facts.h"
#include "mib/message.h"
#include "mib/references.h"
#include "mib/type_list.h"

namespace sentrel::mib {

/// Finds the type of each object and each type definition, through all that it is derived from.
/// Each is looked for at most once, and a chain of references that leads back to itself is cut with
/// one message. Writes nothing but the types and the order of the modules' named values, which it
/// sorts by their numbers, so nodes may be resolved at the same time.
class TypeResolver {
 public:
  /// All must outlive this. `list` is where `types` adds to.
  TypeResolver(std::vector<Module>& modules, const References& references, const BaseFacts& base,
               const BigVector<ResolvedType>& list, TypeList& types);

  void ResolveAll();

  /// kNothing where no value is meant, or the type cannot be known. For after ResolveAll.
  std::uint32_t TypeOf(std::uint32_t module, std::uint32_t definition) const {
    return typeOf_[module][definition];
  }
  std::vector<FileMessage> TakeMessages() { return std::move(messages_); }

 private:
  std::uint32_t Resolve(std::uint32_t m, std::uint32_t d, int depth);
  std::uint32_t Find(std::uint32_t m, const Definition& definition, int depth);
  std::uint32_t NamedType(std::uint32_t m, const Definition& definition, int depth);
  /// Puts what the definition itself tells over what its named type tells.
  void Refine(std::uint32_t m, const Definition& definition, ResolvedType& type);
  std::uint32_t Add(const ResolvedType& type);
  void Report(std::uint32_t m, const Definition& definition, std::string text);

  std::vector<Module>& modules_;
  const References& references_;
  const BaseFacts& base_;
  const BigVector<ResolvedType>& list_;
  TypeList& types_;
  /// By module and definition.
  std::vector<std::vector<std::uint32_t>> typeOf_;
  /// By base type, for those that say no more than that.
  std::vector<std::uint32_t> plainTypes_ = std::vector<std::uint32_t>(256, kNothing);
  std::vector<FileMessage> messages_;
};

}  // namespace sentrel::mib
