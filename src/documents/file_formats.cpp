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
      {"CDF", "Comma-delimited file", "csv", CommaDelimited},
      {"Text", "Text file", "txt", AlignedText},
      {"TXT", "Text file", "txt", AlignedText},
      {"HTML", "Web page", "html", HtmlPage},
      {"MHTML", "Web archive", "mhtml", MimeArchive},
      {"XLS", "Excel workbook", "xlsx", Workbook},
      {"Excel", "Excel workbook", "xlsx", Workbook},
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
