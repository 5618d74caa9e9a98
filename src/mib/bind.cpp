#include "mib/bind.h"

#include <algorithm>

#include "mib/hash.h"

namespace sentrel::mib {
namespace {

/// Finds positions by name in lists of definitions or imports that it does not own.
class NameTable {
 public:
  explicit NameTable(size_t names) {
    size_t slots = 16;
    while (slots < names * 2) slots *= 2;
    slots_.assign(slots, {});
  }

  /// The reference kept for the name, none if there is none: the caller may then set it.
  Reference& At(std::string_view name) {
    const size_t mask = slots_.size() - 1;
    size_t at = Hash(name) & mask;
    while (!slots_[at].name.empty() && slots_[at].name != name) at = (at + 1) & mask;
    slots_[at].name = name;
    return slots_[at].reference;
  }

 private:
  struct Slot {
    std::string_view name;
    Reference reference;
  };
  std::vector<Slot> slots_;
};

class Binder {
 public:
  explicit Binder(Module& module) : module_(module), nodes_(Room(module)), types_(Room(module)) {}

  void Run() {
    AddDefinitions(false);
    AddImports();
    AddDefinitions(true);
    for (Definition& definition : module_.definitions) {
      if (!definition.parentName.empty()) {
        definition.parent = Find(nodes_, definition.parentName, definition.line, false);
      }
      if (!definition.typeName.empty()) {
        definition.type = Find(types_, definition.typeName, definition.line, true);
      }
    }
    SortByName();
  }

 private:
  void SortByName() {
    for (std::uint32_t i = 0; i < module_.definitions.size(); ++i) module_.byName.push_back(i);
    std::sort(module_.byName.begin(), module_.byName.end(), [this](auto a, auto b) {
      const int order = module_.definitions[a].name.compare(module_.definitions[b].name);
      return order != 0 ? order < 0 : a < b;
    });
  }

  /// Every name that can come to stand in a table.
  static size_t Room(const Module& module) {
    return module.definitions.size() * 2 + module.imports.size();
  }

  void AddDefinitions(bool labels) {
    for (size_t i = 0; i < module_.definitions.size(); ++i) {
      const Definition& definition = module_.definitions[i];
      if (definition.name.empty() || (definition.kind == Kind::Label) != labels) continue;
      Reference& place = (definition.kind == Kind::Type ? types_ : nodes_).At(definition.name);
      if (place.IsNone()) place = Reference::ToLocal(i);
    }
  }

  /// A name is imported as a node or as a type: which one, its use will show.
  void AddImports() {
    for (size_t i = 0; i < module_.imports.size(); ++i) {
      for (NameTable* table : {&nodes_, &types_}) {
        Reference& place = table->At(module_.imports[i].name);
        if (place.IsNone()) place = Reference::ToImport(i);
      }
    }
  }

  Reference Find(NameTable& table, std::string_view name, std::uint32_t line, bool isType) {
    Reference& place = table.At(name);
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

  Module& module_;
  NameTable nodes_;
  NameTable types_;
};

}  // namespace

void Bind(Module& module) {
  Binder(module).Run();
}

}  // namespace sentrel::mib
