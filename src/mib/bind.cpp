#include "mib/bind.h"

#include <algorithm>
#include <numeric>

#include "mib/hash.h"

namespace sentrel::mib {
namespace {

/// What a name stands for as a node and as a type.
struct Meanings {
  Reference node;
  Reference type;
};

/// Finds the meanings of names. Has room for a bounded number of names.
class NameTable {
 public:
  NameTable(size_t expected, size_t most) {
    size_t slots = 16;
    while (slots < expected * 2 || slots <= most) slots *= 2;
    slots_.resize(slots);
  }

  /// The meanings kept for the name, none for a new one: the caller may then set them.
  Meanings& At(std::string_view name) {
    const size_t mask = slots_.size() - 1;
    size_t at = Hash(name) & mask;
    while (!slots_[at].name.empty() && slots_[at].name != name) at = (at + 1) & mask;
    slots_[at].name = name;
    return slots_[at].meanings;
  }

 private:
  struct Slot {
    std::string_view name;
    Meanings meanings;
  };
  std::vector<Slot> slots_;
};

class Binder {
 public:
  explicit Binder(ModuleDraft& module)
      : module_(module),
        names_(module.definitions.size() + module.imports.size(),
               module.definitions.size() * 3 + module.imports.size() + module.related.size()),
        related_(module.related.size()) {}

  void Run() {
    AddDefinitions(false);
    AddImports();
    AddDefinitions(true);
    for (DraftDefinition& definition : module_.definitions) {
      if (!definition.parentName.empty()) {
        definition.parent = Find(definition.parentName, definition.line, &Meanings::node);
      }
      if (!definition.typeName.empty()) {
        definition.type = Find(definition.typeName, definition.line, &Meanings::type);
      }
      for (std::uint32_t i = 0; i < definition.related.count; ++i) {
        const std::string_view name = module_.related[definition.related.begin + i];
        related_[definition.related.begin + i] = Find(name, definition.line, &Meanings::node);
      }
    }
  }

  const std::vector<Reference>& Related() const { return related_; }

 private:
  void AddDefinitions(bool labels) {
    for (size_t i = 0; i < module_.definitions.size(); ++i) {
      const Definition& definition = module_.definitions[i];
      if (definition.name.empty() || (definition.kind == Kind::Label) != labels) continue;
      Meanings& meanings = names_.At(definition.name);
      Reference& place = definition.kind == Kind::Type ? meanings.type : meanings.node;
      if (place.IsNone()) place = Reference::ToLocal(i);
    }
  }

  /// A name is imported as a node or as a type: which one, its use will show.
  void AddImports() {
    for (size_t i = 0; i < module_.imports.size(); ++i) {
      Meanings& meanings = names_.At(module_.imports[i].name);
      for (Reference* place : {&meanings.node, &meanings.type}) {
        if (place->IsNone()) *place = Reference::ToImport(i);
      }
    }
  }

  Reference Find(std::string_view name, std::uint32_t line, Reference Meanings::*sort) {
    Reference& place = names_.At(name).*sort;
    const bool isType = sort == &Meanings::type;
    if (place.IsNone()) {
      place = Reference::ToImport(module_.imports.size());
      module_.imports.push_back({name, {}, line, isType, true});
    }
    if (!place.IsLocal()) {
      Import& import = module_.imports[place.Import()];
      import.isUsed = true;
      import.isType = isType;
    }
    return place;
  }

  ModuleDraft& module_;
  NameTable names_;
  std::vector<Reference> related_;
};

std::vector<std::uint32_t> OrderByName(const std::vector<DraftDefinition>& definitions) {
  std::vector<std::uint32_t> order(definitions.size());
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [&](auto a, auto b) {
    const int difference = definitions[a].name.compare(definitions[b].name);
    return difference != 0 ? difference < 0 : a < b;
  });
  return order;
}

}  // namespace

Module Bind(ModuleDraft& draft, Arena& arena) {
  Binder binder(draft);
  binder.Run();
  return {draft,
          arena.LendList<Import>(draft.imports),
          arena.LendList<Definition>(draft.definitions),
          arena.LendList<std::uint32_t>(draft.numbers),
          arena.KeepList<NamedValue>(draft.values),
          arena.LendList<Reference>(binder.Related()),
          arena.LendList<std::uint32_t>(OrderByName(draft.definitions))};
}

}  // namespace sentrel::mib
