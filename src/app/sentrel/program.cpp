#include "app/program.h"

#include <unistd.h>

#include <QApplication>

#include "app/folders.h"
#include "console/globals.h"

namespace sentrel {
namespace {

/// Traps are handled this long before other events have their turn.
constexpr std::chrono::milliseconds kDeliveryBudget{8};

ListenerOptions ListenerSetup(const ProgramOptions& options, const Application& application) {
  const bool root = geteuid() == 0;
  return {.port = options.port,
          .port_helper = application.ProgramFolder() + "/sentrel-port",
          .state_folder = root ? options.machineFolder : options.userFolder,
          .configuration_path = "",
          .queue = {}};
}

}  // namespace

Program::Program(const ProgramOptions& options)
    : application_(options.userFolder),
      registry_(options.machineFolder / kRegistryFile, options.userFolder / kRegistryFile, clock_),
      settings_(registry_),
      newMibs_([this] { return AdoptMibs(); }),
      mibs_(MibLibrarySetup(application_), [this] { newMibs_.Wake(); }),
      decoder_(mibs_, settings_),
      lookup_(decoder_),
      log_(settings_, clock_, locale_, logFile_),
      window_(table_, toolBars_, statusBar_),
      messageBox_(window_),
      rows_(settings_, table_, window_, clock_, locale_, lookup_, log_),
      gate_(settings_, rows_, decoder_, resetTimer_),
      newTraps_([this] { return listener_.Deliver(kDeliveryBudget); }),
      listener_(ListenerSetup(options, application_), gate_, [this] { newTraps_.Wake(); }),
      toggles_(settings_, toolBars_, statusBar_),
      layout_(application_, files_, toolBars_),
      tableCommands_(table_, clipboard_, toolBars_),
      mainForm_(window_, table_, listener_, messageBox_, toggles_, layout_),
      browsers_(window_),
      help_(application_, RegistrySupport(registry_), browsers_, messageBox_),
      helpKey_([this](int context) { help_.ShowHelpContext(application_.HelpFile(), context); }),
      aboutDialogs_(window_),
      about_(application_, ProgramIdentity(), versions_, locale_, aboutDialogs_),
      tipDialogs_(window_, RegistrySupport(registry_), clock_),
      tips_(application_, ProgramIdentity(), RegistrySupport(registry_), tipDialogs_),
      dispatch_(window_, mainForm_, tableCommands_, toggles_, toolBars_, OtherCommands()),
      endRequest_([this] { window_.Unload(); }) {
  QApplication::setApplicationName("Sentrel");
  window_.SetEvents(mainForm_);
  table_.SetEvents(&tableCommands_);
  toolBars_.SetEvents(&dispatch_);
}

Commands Program::OtherCommands() {
  Commands commands;
  commands.ShowHelpContents = [this] { help_.ShowHelpContents(); };
  commands.ShowHelpOnSentrel = [this] { help_.ShowHelpOnSentrel(); };
  commands.ShowTipOfTheDay = [this] { tips_.ShowTipOfTheDay(kTipSet, true); };
  commands.ShowAboutBox = [this] { about_.ShowAboutBox({kProgramIcon}, ""); };
  return commands;
}

bool Program::Start() {
  bool shown = false;
  Main(application_, mainForm_, [&] {
    shown = true;
    tips_.ShowTipOfTheDay(kTipSet, false);
  });
  return shown;
}

bool Program::AdoptMibs() {
  mibs_.Adopt();
  decoder_.Forget();
  return false;
}

}  // namespace sentrel
