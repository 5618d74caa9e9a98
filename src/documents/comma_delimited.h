#pragma once

#include <string>

#include "documents/progress.h"
#include "documents/table_content.h"

namespace sentrel {

/// The table alone as comma-separated values (RFC 4180) in UTF-8, titles first. Line breaks within
/// a cell stay as they are. A cell that a spreadsheet would take for a formula gets an apostrophe
/// in front; plain numbers do not.
std::string CommaDelimited(const TableContent& content, Progress& progress);

}  // namespace sentrel
