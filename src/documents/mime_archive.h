#pragma once

#include <string>

#include "documents/progress.h"
#include "documents/table_content.h"

namespace sentrel {

/// The page of HtmlPage as a MIME archive (MHTML, RFC 2557) that any mail program reads: lines of
/// at most 76 characters of ASCII.
std::string MimeArchive(const TableContent& content, Progress& progress);

}  // namespace sentrel
