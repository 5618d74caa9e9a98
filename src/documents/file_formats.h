#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/progress.h"
#include "documents/table_content.h"

namespace sentrel {

/// One kind of file that a table can be written to.
struct FileFormat {
  std::string_view method;
  std::string_view caption;
  /// Without a dot.
  std::string_view extension;
  /// Whether it also holds a text without a table.
  bool forTexts;
  /// The bytes of the file.
  std::string (*write)(const TableContent& content, Progress& progress);
};

/// In the order in which menus show them.
const std::vector<FileFormat>& FileFormats();

/// The format of a method, in any case of letters; null if there is none.
const FileFormat* FindFileFormat(std::string_view method);

}  // namespace sentrel
