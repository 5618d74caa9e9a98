#include "app/program.h"

#include <QApplication>

#include "console/globals.h"

namespace sentrel {
namespace {

/// Traps are handled this long before other events have their turn.
constexpr std::chrono::milliseconds kDeliveryBudget{8};

ListenerOptions ListenerOptionsFor(const ProgramOptions& options, const Application& application) {
  return {.port = options.port,
          .port_helper = application.ProgramFolder() + "/sentrel-port",
          .state_folder = options.stateFolder,
          .configuration_path = "",
          .queue = {}};
}

}  // namespace

Program::Program(const ProgramOptions& options)
    : window_(table_),
      messageBox_(window_),
      rows_(settings_, table_, window_, clock_, locale_),
      gate_(settings_, rows_, resetTimer_),
      wakeup_([this] { return listener_.Deliver(kDeliveryBudget); }),
      listener_(ListenerOptionsFor(options, application_), gate_, [this] { wakeup_.Wake(); }),
      mainForm_(window_, table_, listener_, messageBox_),
      endRequest_([this] { window_.Unload(); }) {
  QApplication::setApplicationName("Sentrel");
  window_.SetEvents(mainForm_);
}

bool Program::Start() {
  Main(application_, mainForm_);
  return window_.isVisible();
}

}  // namespace sentrel
