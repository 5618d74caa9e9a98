#include "app/program.h"

#include <unistd.h>

#include <QApplication>

#include "app/folders.h"
#include "console/globals.h"
#include "desktop/qt_settings_form.h"

namespace sentrel {
namespace {

/// Traps are handled this long before other events have their turn.
constexpr std::chrono::milliseconds kDeliveryBudget{8};

/// The SNMP library would make the folder readable to its user alone, but the machine's options in
/// it are for all users.
void MakeStateFolder(const std::filesystem::path& folder, bool ofMachine) {
  using std::filesystem::perms;
  std::error_code ignored;
  if (!std::filesystem::create_directories(folder, ignored)) return;
  const perms others =
      perms::group_read | perms::group_exec | perms::others_read | perms::others_exec;
  std::filesystem::permissions(
      folder, ofMachine ? perms::owner_all | others : perms(perms::owner_all), ignored);
}

ListenerOptions ListenerSetup(const ProgramOptions& options, const Application& application) {
  const bool root = geteuid() == 0;
  const std::filesystem::path& folder = root ? options.machineFolder : options.userFolder;
  MakeStateFolder(folder, root);
  return {.port = options.port,
          .port_helper = application.ProgramFolder() + "/sentrel-port",
          .state_folder = folder,
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
      fileDialog_(window_),
      rows_(settings_, table_, window_, clock_, locale_, lookup_, log_),
      gate_(settings_, rows_, decoder_, resetTimer_),
      newTraps_([this] { return listener_.Deliver(kDeliveryBudget); }),
      listener_(ListenerSetup(options, application_), gate_, [this] { newTraps_.Wake(); }),
      toggles_(settings_, toolBars_, statusBar_),
      layout_(application_, files_, toolBars_),
      tableCommands_(table_, clipboard_, toolBars_),
      mainForm_(window_, table_, listener_, messageBox_, toggles_, layout_),
      dispatch_(window_, mainForm_, tableCommands_, toggles_, toolBars_, OtherCommands()),
      endRequest_([this] { window_.Unload(); }) {
  QApplication::setApplicationName("Sentrel");
  window_.SetEvents(mainForm_);
  table_.SetEvents(&tableCommands_);
  toolBars_.SetEvents(&dispatch_);
}

Commands Program::OtherCommands() {
  Commands commands;
  commands.ShowSettingsForm = [this] {
    QtSettingsForm(settings_, messageBox_, fileDialog_, &window_).exec();
  };
  return commands;
}

bool Program::Start() {
  Main(application_, mainForm_);
  return window_.isVisible();
}

bool Program::AdoptMibs() {
  mibs_.Adopt();
  decoder_.Forget();
  return false;
}

}  // namespace sentrel
