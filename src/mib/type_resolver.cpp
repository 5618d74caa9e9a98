#include "mib/type_resolver.h"

#include <algorithm>

#include "mib/token_reader.h"

namespace sentrel::mib {

void TypeResolver::ResolveAll() {
  for (std::uint32_t m = 0; m < modules_.size(); ++m) {
    for (const std::uint32_t d : modules_[m].byName) {
      const Kind kind = modules_[m].definitions[d].kind;
      if (kind == Kind::Type || kind == Kind::Object) Resolve(m, d, 0);
    }
  }
}

std::uint32_t TypeResolver::Resolve(std::uint32_t m, std::uint32_t d, int depth) {
  const Definition& definition = modules_[m].definitions[d];
  return typeOf_.Get(
      m, d, depth, [&] { return Find(m, definition, depth); },
      [&] {
        Report(m, definition, "the type of " + Quote(definition.name) + " leads back to itself");
      });
}

std::uint32_t TypeResolver::Find(std::uint32_t m, const Definition& definition, int depth) {
  ResolvedType type;
  type.base = definition.base;
  const std::uint32_t named = NamedType(m, definition, depth);
  if (named != kNothing) {
    const bool isSame = definition.values.count == 0 && definition.hint.empty();
    if (isSame && definition.units.empty()) return named;
    type = types_.At(named);
    if (!isSame) type.name = type.module = {};
  }
  type.units = definition.units;
  if (definition.kind == Kind::Type && type.base != BaseType::Row) {
    type.name = definition.name;
    type.module = modules_[m].name;
  }
  if (!definition.hint.empty()) type.hint = definition.hint;
  if (definition.values.count > 0 && type.base != BaseType::Bits) {
    TakeOwnValues(type, m, definition);
  }
  return Add(type);
}

/// The type that the definition's syntax names; kNothing where it names none, or one that is
/// unknown.
std::uint32_t TypeResolver::NamedType(std::uint32_t m, const Definition& definition, int depth) {
  const Target target = references_.TargetOf(m, definition.type);
  if (target.place == Target::Place::Module) {
    return Resolve(target.module, target.definition, depth + 1);
  }
  if (target.place == Target::Place::Base) return baseTypes_.Take(target);
  if (!definition.type.IsNone()) {
    const std::string_view name = modules_[m].imports[definition.type.Import()].name;
    Report(m, definition, "type " + Quote(name) + " is unknown");
  }
  return kNothing;
}

void TypeResolver::TakeOwnValues(ResolvedType& type, std::uint32_t m,
                                 const Definition& definition) {
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
  std::uint32_t& plain = plainTypes_[static_cast<size_t>(type.base)];
  if (plain == kNothing) plain = types_.Add(type);
  return plain;
}

void TypeResolver::Report(std::uint32_t m, const Definition& definition, std::string text) {
  messages_.push_back({modules_[m].file, {{}, definition.line, std::move(text)}});
}

}  // namespace sentrel::mib
