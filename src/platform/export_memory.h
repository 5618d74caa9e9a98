#pragma once

#include <string>

namespace sentrel {

/// What the export dialogs remember of the user's choices. Called on the event loop; never throws.
class ExportMemory {
 public:
  virtual ~ExportMemory() = default;
  /// Titles of the columns that were left out last time, one a line; empty at first.
  virtual std::string LeftOutColumns() const = 0;
  virtual void SetLeftOutColumns(const std::string& titles) = 0;
};

}  // namespace sentrel
