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
  /// The window above which dialogs stand.
  QWidget& owner;
  const Clock& clock;
  const Locale& locale;
  MessageBox& messageBox;
  ExportMemory& memory;
};

/// One export: its settings, and how its failures are told. Used on the event loop.
class ExportSession {
 public:
  explicit ExportSession(const ExportDesk& desk) : desk_(desk) {}

  const ExportDesk& Desk() const { return desk_; }
  /// What the next dialog is to stand above; null where nothing can be seen.
  QWidget* Owner() const;
  /// Shows a message, unless the settings are quiet.
  void Tell(const std::string& text) const;
  /// The result of a step; a failure of it is told and gives false. Throws Cancelled.
  bool Succeeds(const std::function<bool()>& step) const;
  /// The same, and false where the user gave up. Throws nothing.
  bool Guarded(const std::function<bool()>& work) const;

  ExportSettings settings;

 private:
  ExportDesk desk_;
};

}  // namespace sentrel
