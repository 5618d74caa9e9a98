#include "documents/file_formats.h"

#include <algorithm>

#include "common/text.h"
#include "documents/aligned_text.h"
#include "documents/comma_delimited.h"
#include "documents/html_page.h"
#include "documents/mime_archive.h"
#include "documents/workbook.h"

namespace sentrel {

const std::vector<FileFormat>& FileFormats() {
  static const std::vector<FileFormat> kFormats = {
      {"CDF", "Comma-delimited file", "csv", false, CommaDelimited},
      {"Text", "Text file", "txt", true, AlignedText},
      {"TXT", "Text file", "txt", true, AlignedText},
      {"HTML", "Web page", "html", true, HtmlPage},
      {"MHTML", "Web archive", "mhtml", true, MimeArchive},
      {"XLS", "Excel workbook", "xlsx", false, Workbook},
      {"Excel", "Excel workbook", "xlsx", false, Workbook},
  };
  return kFormats;
}

const FileFormat* FindFileFormat(std::string_view method) {
  const auto& formats = FileFormats();
  const auto found = std::find_if(formats.begin(), formats.end(), [&](const FileFormat& format) {
    return UpperCase(format.method) == UpperCase(method);
  });
  return found == formats.end() ? nullptr : &*found;
}

}  // namespace sentrel
