#include "shell/help_benchwell.h"

#include "common/failure.h"

namespace sentrel {
namespace {

constexpr const char* kFamilyKey = "Software\\VarnholtNet\\Benchwell";
constexpr const char* kScheme = "file://";

}  // namespace

Help_Benchwell::Help_Benchwell(const Application& application, const RegistrySupport& registry,
                               BrowserFactory& browsers, MessageBox& messageBox)
    : application_(application),
      registry_(registry),
      browsers_(browsers),
      messageBox_(messageBox) {}

void Help_Benchwell::ShowHelpContents() {
  OpenWebPage(HelpTopicUrl(kHelpDocument, kIntroductionTopic));
}

void Help_Benchwell::ShowHelpOnSentrel() {
  OpenWebPage(HelpTopicUrl(kHelpDocument, kSentrelTopic));
}

void Help_Benchwell::ShowHelpContext(const std::string& helpFile, int number,
                                     const std::string& topic) {
  const std::string folder = helpFile.substr(0, helpFile.find_last_of("/\\"));
  OpenWebPage(kScheme + folder + "/default.htm?context=" + std::to_string(number) +
              "&topic=" + topic);
}

std::string Help_Benchwell::HelpTopicUrl(const std::string& Context,
                                         const std::string& Topic) const {
  std::string folder = registry_.ReadRegistryKeyValue(RegistryRoot::HKEY_CURRENT_USER, kFamilyKey,
                                                      "HelpDirectory", "");
  if (folder.empty()) folder = application_.ProgramFolder() + "\\Help";
  return kScheme + folder + "\\default.htm?context=" + Context + "&topic=" + Topic;
}

void Help_Benchwell::OpenWebPage(const std::string& Address) {
  if (!BrowseUrl(Address)) return;
  messageBox_.Show(
      std::string("Varnholt Browser is not installed.\rVisit ") + kMakersSite + " for a copy.",
      MessageIcon::Exclamation);
}

bool Help_Benchwell::BrowseUrl(const std::string& Address) {
  std::unique_ptr<Browser> browser;
  if (!Attempt([&] { browser = browsers_.Create(); })) return true;
  if (!Attempt([&] { browser->Browse(Address); })) {
    messageBox_.Show("Web Page not Opened", MessageIcon::Exclamation, "URL Failed");
  }
  return false;
}

}  // namespace sentrel
