#pragma once

#include <string>

#include "documents/progress.h"
#include "documents/table_content.h"

namespace sentrel {

/// A cell of a sheet holds at most this many UTF-16 code units, escapes included (ECMA-376 leaves
/// it to the programs, and this is what they take). The rest of a longer text goes into further
/// rows.
inline constexpr std::size_t kMostCellUnits = 32767;

/// The table as a workbook (Office Open XML, ECMA-376) with one sheet: a header that stays in view
/// and filters, and cells that hold nothing but text. Throws Failure.
std::string Workbook(const TableContent& content, Progress& progress);

}  // namespace sentrel
