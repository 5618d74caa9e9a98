#pragma once

#include <string>

#include "controls/tool_bars.h"
#include "platform/file_system.h"
#include "platform/main_window.h"

namespace sentrel {

/// The file that keeps the arrangement of the window between runs. Nothing about it is ever told to
/// the user.
class ToolbarLayout {
 public:
  ToolbarLayout(const Application& application, FileSystem& files, ToolBars& toolBars);

  /// A step that fails is passed over, and the next one runs. A file from before the present design
  /// of the toolbars is deleted.
  void LoadToolbarLayout();
  /// Throws Failure.
  void SaveToolbarLayout();

 private:
  std::string Path() const;

  const Application& application_;
  FileSystem& files_;
  ToolBars& toolBars_;
};

}  // namespace sentrel
