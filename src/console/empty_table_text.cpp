#include "console/empty_table_text.h"

namespace sentrel {

std::string EmptyTableText(const Settings& settings) {
  if (settings.Paused()) return "Trap receiving is paused. Traps that arrive now are dropped.";
  const bool devices = settings.DeviceFilterActive();
  const bool communities = settings.CommunityStrings()->Count() > 0;
  if (devices && communities) {
    return "Waiting for traps. Device filtering and community filtering are on: only traps from "
           "the "
           "listed devices and with a listed community are shown.";
  }
  if (devices) {
    return "Waiting for traps. Device filtering is on: only traps from the listed devices are "
           "shown.";
  }
  if (communities) {
    return "Waiting for traps. Community filtering is on: only traps with a listed community are "
           "shown.";
  }
  return "Waiting for traps";
}

}  // namespace sentrel
