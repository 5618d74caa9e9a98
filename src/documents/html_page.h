#pragma once

#include <string>

#include "documents/progress.h"
#include "documents/table_content.h"

namespace sentrel {

/// The document as one page that needs nothing else: HTML (living standard) that is well-formed XML
/// too, in UTF-8, for light and dark screens and for print. No script runs in it, and nothing in it
/// is fetched.
std::string HtmlPage(const TableContent& content, Progress& progress);

}  // namespace sentrel
