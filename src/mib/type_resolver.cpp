#include "mib/type_resolver.h"

#include <algorithm>

#include "mib/reference_chain.h"
#include "mib/token_reader.h"

namespace sentrel::mib {

TypeResolver::TypeResolver(std::vector<Module>& modules, const References& references,
                           const BaseFacts& base, const BigVector<ResolvedType>& list,
                           TypeList& types)
    : modules_(modules),
      references_(references),
      base_(base),
      list_(list),
      types_(types),
      typeOf_(UnsetMarks(modules)) {}

void TypeResolver::ResolveAll() {
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (const std::uint32_t d : modules_[m].byName) {
      const Kind kind = modules_[m].definitions[d].kind;
      if (kind == Kind::Type || kind == Kind::Object) Resolve(m, d, 0);
    }
  }
}

std::uint32_t TypeResolver::Resolve(std::uint32_t m, std::uint32_t d, int depth) {
  std::uint32_t& type = typeOf_[m][d];
  if (type != kUnset && type != kBusy) return type;
  const Definition& definition = modules_[m].definitions[d];
  if (type == kBusy || depth > kLongestChain) {
    Report(m, definition, "the type of " + Quote(definition.name) + " leads back to itself");
    return type = kNothing;
  }
  type = kBusy;
  const std::uint32_t found = Find(m, definition, depth);
  return typeOf_[m][d] = found;
}

std::uint32_t TypeResolver::Find(std::uint32_t m, const Definition& definition, int depth) {
  ResolvedType type;
  type.base = definition.base;
  const std::uint32_t named = NamedType(m, definition, depth);
  if (named != kNothing) {
    const bool isSame = definition.values.count == 0 && definition.hint.empty();
    if (isSame && definition.units.empty()) return named;
    type = list_[named];
    if (!isSame) type.name = type.module = {};
  }
  Refine(m, definition, type);
  return Add(type);
}

std::uint32_t TypeResolver::NamedType(std::uint32_t m, const Definition& definition, int depth) {
  const Target target = references_.TargetOf(m, definition.type);
  if (target.place == Target::Place::Module) {
    return Resolve(target.module, target.definition, depth + 1);
  }
  if (target.place == Target::Place::Base) return base_.EntryOf(target).type;
  if (!definition.type.IsNone()) {
    const std::string_view name = references_.ImportedName(m, definition.type);
    Report(m, definition, "type " + Quote(name) + " is unknown");
  }
  return kNothing;
}

void TypeResolver::Refine(std::uint32_t m, const Definition& definition, ResolvedType& type) {
  type.units = definition.units;
  if (definition.kind == Kind::Type && type.base != BaseType::Row) {
    type.name = definition.name;
    type.module = modules_[m].name;
  }
  if (!definition.hint.empty()) type.hint = definition.hint;
  if (definition.values.count == 0 || type.base == BaseType::Bits) return;
  NamedValue* values = modules_[m].values.data() + definition.values.begin;
  std::stable_sort(values, values + definition.values.count,
                   [](const auto& a, const auto& b) { return a.value < b.value; });
  type.values = values;
  type.valueCount = definition.values.count;
  if (type.base == BaseType::None) type.base = BaseType::Integer;
}

std::uint32_t TypeResolver::Add(const ResolvedType& type) {
  const bool isPlain =
      type.valueCount == 0 && type.hint.empty() && type.units.empty() && type.name.empty();
  if (!isPlain) return types_.Add(type);
  std::uint32_t& plain = plainTypes_[static_cast<std::size_t>(type.base)];
  if (plain == kNothing) plain = types_.Add(type);
  return plain;
}

void TypeResolver::Report(std::uint32_t m, const Definition& definition, std::string text) {
  messages_.push_back({modules_[m].file, {{}, definition.line, std::move(text)}});
}

}  // namespace sentrel::mib
