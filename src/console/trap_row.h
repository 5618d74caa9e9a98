#pragma once

#include <memory>

#include "controls/table.h"
#include "trap/arrived_trap.h"

namespace sentrel {

/// A row that is made of a trap, which it keeps as it came, also when it has been made. Belongs to
/// the event loop.
class TrapRow : public RowSource {
 public:
  explicit TrapRow(const ArrivedTrap& trap) : trap_(trap) {}
  const ArrivedTrap& Trap() const { return trap_; }

 private:
  const ArrivedTrap trap_;
};

/// The trap of a row, which outlives the row where it is held; null for a row of none.
inline std::shared_ptr<const ArrivedTrap> TrapOf(const Table& table, int row) {
  const auto source = std::dynamic_pointer_cast<const TrapRow>(table.Source(row));
  return source ? std::shared_ptr<const ArrivedTrap>(source, &source->Trap()) : nullptr;
}

}  // namespace sentrel
