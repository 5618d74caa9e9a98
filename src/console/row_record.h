#pragma once

#include <string>
#include <string_view>

#include "trap/trap.h"

namespace sentrel {

/// The trap as one undecoded text, which the table keeps with its row:
/// SOURCEIP=address::COMMUNITY=community, then ::OID=type=value for each binding in order.
///
/// So that any text survives, a backslash is put before each backslash, and before each ":" that
/// touches another ":" or an end of its text. Ordinary texts are kept as they are.
std::string RowRecord(const Trap& trap);

/// The trap that a row record was made of. Throws Failure where the text is none.
Trap ReadRowRecord(std::string_view record);

/// Number of bindings that a reader may touch: the shortest of the trap's three lists.
size_t BindingCount(const Trap& trap);

}  // namespace sentrel
