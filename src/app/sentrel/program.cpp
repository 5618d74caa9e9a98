#include "app/program.h"

#include <unistd.h>

#include <QApplication>
#include <cstdlib>

#include "app/mib_setup.h"
#include "common/failure.h"
#include "console/globals.h"
#include "desktop/forms/send_dialog.h"
#include "desktop/forms/settings_dialog.h"
#include "desktop/window/icons.h"
#include "store/standing.h"

namespace sentrel {
namespace {

/// Traps are handled this long before other events have their turn.
constexpr std::chrono::milliseconds kDeliveryBudget{8};
/// Long enough for traps to gather, so that in a storm not each of them costs a turn of the event
/// loop, and short enough for no frame to be late.
constexpr std::chrono::milliseconds kDeliveryRest{30};

ProgramIdentity ThisProgram() {
  return {.majorVersion = SENTREL_VERSION_MAJOR,
          .minorVersion = SENTREL_VERSION_MINOR,
          .revision = SENTREL_VERSION_BUILD};
}

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

/// Whether the file is there, or could be made, and in no other hands.
bool IsOurs(const std::filesystem::path& file) {
  Standing standing = Standing::Foreign;
  Attempt([&] { standing = StandingOf(file); });
  return standing != Standing::Foreign;
}

/// Where version 3 users are configured; empty for the SNMP library's own folders. Root trusts
/// no home folder that somebody else can write.
std::string SnmpFolders(bool root) {
  const char* const home = std::getenv("HOME");
  if (!root || home == nullptr) return "";
  return IsOurs(std::filesystem::path(home) / ".snmp" / "sentrel.conf") ? "" : "/etc/snmp";
}

ListenerOptions ListenerSetup(const ProgramOptions& options, const Application& application) {
  const bool root = geteuid() == 0;
  const std::filesystem::path& folder = root ? options.machineFolder : options.userFolder;
  MakeStateFolder(folder, root);
  return {.port = options.port,
          .portHelper = application.ProgramFolder() + "/sentrel-port",
          .stateFolder = IsOurs(folder / "sentrel.conf") ? folder.string() : "",
          .configurationPath = SnmpFolders(root),
          .queue = {},
          .sendPort = options.sendPort};
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
      mousePointer_(window_),
      exportMemory_(registry_),
      exportEngines_({window_, clock_, locale_, messageBox_, exportMemory_}),
      trapExport_(table_, mousePointer_,
                  {exportEngines_, application_, messageBox_, printers_, ThisProgram()}),
      rows_(settings_, table_, window_, clock_, locale_, lookup_, log_),
      filter_(table_, mibs_),
      filterBar_(new FilterBar(table_, filter_, window_.View(), &window_)),
      gate_(settings_, rows_, decoder_, resetTimer_),
      newTraps_([this] { return listener_.Deliver(kDeliveryBudget); }, kDeliveryRest),
      listener_(ListenerSetup(options, application_), gate_, [this] { newTraps_.Wake(); }),
      watch_(listener_, settings_, mibs_),
      check_(listener_, network_, settings_, listener_.Version3UsersKept(), listener_, watch_),
      reception_(listener_, watch_, check_, &window_),
      details_(window_, table_, mibs_, mibs_, registry_),
      pauseAndRaw_(settings_, table_, toolBars_, statusBar_),
      layout_(application_, files_, toolBars_),
      tableCommands_(table_, clipboard_, toolBars_),
      savedTrap_(table_, fileDialog_, listener_, trapWriter_),
      testTrap_(listener_, clock_, locale_, [this](const TrapObject& trap) { ShowSendForm(trap); }),
      mainForm_(window_, table_, listener_, messageBox_, pauseAndRaw_, layout_),
      browsers_(window_),
      help_(application_, RegistrySupport(registry_), browsers_, messageBox_),
      helpKey_([this](int context, const std::string& topic) {
        help_.ShowHelpContext(application_.HelpFile(), context, topic);
      }),
      aboutDialogs_(window_),
      about_(application_, ThisProgram(), versions_, locale_, aboutDialogs_),
      tipDialogs_(window_, RegistrySupport(registry_), clock_),
      tips_(application_, ThisProgram(), RegistrySupport(registry_), tipDialogs_),
      dispatch_(window_, mainForm_, tableCommands_, pauseAndRaw_, toolBars_, OtherCommands()),
      endRequest_([this] { window_.Unload(); }),
      forcedEnd_([this] {
        table_.SetObserver(nullptr);  // the last traps are for the log: there is no window any more
        listener_.CloseListener();
      }) {
  QApplication::setApplicationName("Sentrel");
  window_.SetEvents(mainForm_);
  table_.SetEvents(&tableCommands_);
  toolBars_.SetEvents(&dispatch_);
  AddViewCommands();
}

void Program::AddViewCommands() {
  const auto showReception = [this] { ShowReception(); };
  window_.Menus().AddViewCommand("&Filter", QKeySequence::Find, [this] { filterBar_->Open(); });
  window_.Menus().AddViewCommand("&Reception ...", QKeySequence("Ctrl+R"), showReception);
  rows_.SetFilter(&filter_);
  window_.ShowAbove(*filterBar_);
  details_.Start();
  window_.View().AddEmptyAction("I see nothing", [this] {
    reception_.ShowCheck();
    ShowReception();
  });
  window_.View().AddEmptyAction("Send a test trap", [this] { testTrap_.SendTestTrap(); });
  QObject::connect(&reception_, &ReceptionWindow::CureWanted, &window_,
                   [this](const WatchedDatagram& datagram) { ShowCure(datagram); });
}

void Program::ShowReception() {
  reception_.show();
  reception_.raise();
  reception_.activateWindow();
}

void Program::ShowCure(const WatchedDatagram& datagram) {
  SettingsDialog dialog(settings_, messageBox_, fileDialog_, logFile_,
                        listener_.Version3UsersKept(), &window_);
  if (datagram.cure == Cure::kDeviceFilter) {
    dialog.Form().ProposeDeviceFilter(datagram.seen.sender);
  } else if (datagram.cure == Cure::kCommunityFilter) {
    dialog.Form().ProposeCommunity(datagram.seen.community);
  } else if (datagram.cure == Cure::kUsers) {
    dialog.Form().ShowVersion3Users();
  }
  dialog.exec();
}

Commands Program::OtherCommands() {
  Commands commands;
  commands.ShowSettingsForm = [this] {
    SettingsDialog(settings_, messageBox_, fileDialog_, logFile_, listener_.Version3UsersKept(),
                   &window_)
        .exec();
  };
  commands.ExportTraps = [this](const std::string& method) { trapExport_.ExportTraps(method); };
  commands.PrintTraps = [this] { trapExport_.PrintTraps(); };
  commands.PreviewTraps = [this] { trapExport_.PreviewTraps(); };
  commands.SaveSelectedTrap = [this] { savedTrap_.SaveSelectedTrap(); };
  commands.SendTestTrap = [this] { testTrap_.SendTestTrap(); };
  commands.ShowHelpContents = [this] { help_.ShowHelpContents(); };
  commands.ShowHelpOnSentrel = [this] { help_.ShowHelpOnSentrel(); };
  commands.ShowTipOfTheDay = [this] { tips_.ShowTipOfTheDay(kTipSet, true); };
  commands.ShowAboutBox = [this] { about_.ShowAboutBox({kProgramIcon}, ""); };
  return commands;
}

void Program::ShowSendForm(const TrapObject& trap) {
  SendDialog(listener_, messageBox_, registry_, &window_).SendTrap(trap);
}

bool Program::Start() {
  return Main(application_, mainForm_, [this] { tips_.ShowTipOfTheDay(kTipSet, false); });
}

bool Program::AdoptMibs() {
  mibs_.Adopt();
  decoder_.Forget();
  filter_.ForgetNames();
  return false;
}

}  // namespace sentrel
