#pragma once

#include <functional>

#include "console/main_form.h"
#include "platform/main_window.h"

namespace sentrel {

/// The start of a run, once options and window logic have been made. Returns with the window shown,
/// or, after a failure that the user has been told of, with the window unloaded. Only where the
/// window is shown the tip of the day is offered.
void Main(Application& application, MainForm& mainForm,
          const std::function<void()>& showTipOfTheDay);

}  // namespace sentrel
