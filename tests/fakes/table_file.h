#pragma once

#include <string>
#include <vector>

#include "common/text.h"
#include "fakes/shell.h"

namespace sentrel {

/// The rows of a table in a text file: what is between the bars of each line, without the blanks
/// around it. Lines that begin with "#" are comments.
inline std::vector<std::vector<std::string>> RowsOf(const std::string& path) {
  const std::string text = ReadFile(path);
  std::vector<std::vector<std::string>> rows;
  for (const std::string_view line : SplitLines(text)) {
    if (line.empty() || line.front() == '#') continue;
    std::vector<std::string>& row = rows.emplace_back();
    for (const std::string_view cell : Split(line, "|")) row.emplace_back(TrimBlanks(cell));
  }
  return rows;
}

}  // namespace sentrel
