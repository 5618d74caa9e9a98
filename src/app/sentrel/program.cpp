#include "app/program.h"

#include <QApplication>

#include "console/globals.h"
#include "desktop/table_accessible.h"

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
    : application_(options.stateFolder),
      window_(table_, toolBars_, statusBar_),
      messageBox_(window_),
      rows_(settings_, table_, window_, clock_, locale_),
      gate_(settings_, rows_, resetTimer_),
      wakeup_([this] { return listener_.Deliver(kDeliveryBudget); }),
      listener_(ListenerOptionsFor(options, application_), gate_, [this] { wakeup_.Wake(); }),
      toggles_(settings_, toolBars_, statusBar_),
      layout_(application_, files_, toolBars_),
      tableCommands_(table_, clipboard_, toolBars_),
      mainForm_(window_, table_, listener_, messageBox_, toggles_, layout_),
      dispatch_(window_, mainForm_, tableCommands_, toggles_, toolBars_, OtherCommands()),
      endRequest_([this] { window_.Unload(); }) {
  QApplication::setApplicationName("Sentrel");
  InstallTableAccessibility();
  window_.SetEvents(mainForm_);
  table_.SetEvents(&tableCommands_);
  toolBars_.SetEvents(&dispatch_);
}

Commands Program::OtherCommands() {
  return {};
}

int Program::Run() {
  Main(application_, mainForm_);
  return window_.isVisible() ? QApplication::exec() : 1;
}

}  // namespace sentrel
