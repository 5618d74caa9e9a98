#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "platform/clock.h"
#include "platform/export_memory.h"
#include "platform/export_settings.h"
#include "platform/message_box.h"

namespace sentrel {

/// What all exports share; all of it must outlive them.
struct ExportDesk {
  /// The window that dialogs open above.
  QWidget& owner;
  const Clock& clock;
  const Locale& locale;
  MessageBox& messageBox;
  ExportMemory& memory;
};

/// One export: its settings, and how the user is told of its failures. Used on the event loop.
class ExportSession {
 public:
  explicit ExportSession(const ExportDesk& desk) : desk_(desk) {}

  const ExportDesk& Desk() const { return desk_; }
  /// What the next dialog is to open above; null if no window is visible.
  QWidget* Owner() const;
  /// Shows a message, unless the settings are quiet.
  void Tell(const std::string& text) const;
  /// The result of a step; if it fails, the user is told and the result is false. Throws Cancelled.
  bool Succeeds(const std::function<bool()>& step) const;
  /// The same, but false if the user cancels. Throws nothing.
  bool Guarded(const std::function<bool()>& work) const;

  ExportSettings settings;

 private:
  ExportDesk desk_;
};

}  // namespace sentrel
