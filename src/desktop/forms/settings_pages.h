#pragma once

#include <QTabWidget>

namespace sentrel {

/// The four tabs of the settings dialog with all their controls, which carry their own names.
/// Hidden controls keep their room.
QTabWidget* MakeSettingsTabs();

}  // namespace sentrel
