#include "desktop/export/export_session.h"

#include "desktop/services/desktop_message_box.h"
#include "documents/progress.h"

namespace sentrel {

QWidget* ExportSession::Owner() const {
  return OwnerOfNextDialog(desk_.owner);
}

void ExportSession::Tell(const std::string& text) const {
  if (!settings.quiet) desk_.messageBox.Show(text, MessageIcon::Exclamation);
}

bool ExportSession::Succeeds(const std::function<bool()>& step) const {
  try {
    return step();
  } catch (const Cancelled&) {
    throw;
  } catch (const std::exception& failure) {
    Tell(failure.what());
    return false;
  }
}

bool ExportSession::Guarded(const std::function<bool()>& work) const {
  try {
    return Succeeds(work);
  } catch (const Cancelled&) {
    return false;
  }
}

}  // namespace sentrel
