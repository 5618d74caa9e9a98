#include "desktop/services/wait_cursor.h"

namespace sentrel {

void WaitCursor::SetHourglass(bool on) {
  if (on) {
    window_.setCursor(Qt::WaitCursor);
  } else {
    window_.unsetCursor();
  }
}

}  // namespace sentrel
