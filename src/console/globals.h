#pragma once

#include <functional>

#include "console/main_form.h"
#include "platform/main_window.h"

namespace sentrel {

/// The start of a run, once options and window logic have been made. Returns whether the window is
/// shown; else it is unloaded, and the user has been told of the failure. Only where the window is
/// shown is the tip of the day offered.
bool Main(Application& application, MainForm& mainForm,
          const std::function<void()>& showTipOfTheDay);

}  // namespace sentrel
