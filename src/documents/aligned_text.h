#pragma once

#include <string>

#include "documents/progress.h"
#include "documents/table_content.h"

namespace sentrel {

/// A column is at most this wide, in letters; longer lines continue below, in the same column.
inline constexpr std::size_t kWidestTextColumn = 80;

/// The document as plain UTF-8 text with CR LF line ends: the texts, then the table in columns with
/// a rule under the titles. The lines of a cell stay in its column; if any cell has several lines,
/// rows are separated by an empty line.
std::string AlignedText(const TableContent& content, Progress& progress);

}  // namespace sentrel
