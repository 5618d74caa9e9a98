#pragma once

#include <string>

#include "controls/table.h"

namespace sentrel {

/// The selected cells as an HTML table. A spreadsheet that is given it keeps the lines of a cell
/// together, and takes every cell as text: a value that a sender chose is never read as a formula,
/// a number or a date.
std::string CopiedHtml(const Table& table);

}  // namespace sentrel
