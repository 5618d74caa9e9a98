#pragma once

#include <QTabWidget>

namespace sentrel {

/// The tabs of the settings dialog with all their controls, which carry their own names. Hidden
/// controls keep their room. The page of the version 3 users, behind the others, takes the
/// ownership of the widget.
QTabWidget* MakeSettingsTabs(QWidget* version3Users);

}  // namespace sentrel
