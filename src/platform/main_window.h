#pragma once

#include <string>

namespace sentrel {

/// A place and a size within a window, in the window's units.
struct Area {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// Told of what happens to the main window, on the event loop. Must not throw.
class MainWindowEvents {
 public:
  virtual ~MainWindowEvents() = default;
  /// The size of the inner area has changed.
  virtual void Form_Resize() = 0;
  /// The window closes for good; comes once, also for a window that was never shown.
  virtual void Form_Unload() = 0;
};

/// What the logic asks of the main window. Called on the event loop.
class MainWindow {
 public:
  virtual ~MainWindow() = default;
  virtual void SetCaption(const std::string& caption) = 0;
  /// The number by which the help key finds its page.
  virtual void SetHelpContext(int number) = 0;
  /// Measures of one line of text in the window's font, in the unit of the table's heights and
  /// widths.
  virtual int TextWidth(const std::string& text) const = 0;
  virtual int TextHeight(const std::string& text) const = 0;
  /// Size of the window's inner area.
  virtual int InnerWidth() const = 0;
  virtual int InnerHeight() const = 0;
  virtual int StatusBarHeight() const = 0;
  /// Moves and sizes the table in one step. Throws Failure when an extent is negative.
  virtual void MoveTable(const Area& area) = 0;
  virtual void Show() = 0;
  /// Closes the window for good; the application's event loop ends with its last window.
  virtual void Unload() = 0;
};

/// What the logic asks of the application as a whole.
class Application {
 public:
  virtual ~Application() = default;
  /// Folder of the running program, without a separator at its end.
  virtual std::string ProgramFolder() const = 0;
  /// File name of the running program, without its extension.
  virtual std::string ExecutableName() const = 0;
  /// Folder of the layout file: the program folder where this user may write there, else a folder
  /// of the user's own. Without a separator at its end.
  virtual std::string LayoutFolder() const = 0;
  virtual void SetHelpFile(const std::string& path) = 0;
};

}  // namespace sentrel
