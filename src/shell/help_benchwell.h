#pragma once

#include <string>

#include "platform/browser.h"
#include "platform/main_window.h"
#include "platform/message_box.h"
#include "settings/registry_support.h"

namespace sentrel {

inline constexpr const char* kHelpDocument = "BenchwellDoc";
inline constexpr const char* kIntroductionTopic = "BenchwellPHIntroducingTools";
inline constexpr const char* kSentrelTopic = "BenchwellPHSNMPToolsSNMPSentrel";

/// The address of the maker, from whom a browser is to be had. The top-level domain is one that is
/// kept for names without a host (RFC 2606): who publishes the program puts his own here.
inline constexpr const char* kMakersSite = "https://www.varnholt.example/";

/// The help: web pages on disk, shown by the one browser object.
class Help_Benchwell {
 public:
  Help_Benchwell(const Application& application, const RegistrySupport& registry,
                 BrowserFactory& browsers, MessageBox& messageBox);

  void ShowHelpContents();
  void ShowHelpOnSentrel();
  /// What the help key opens: the page for a topic, or else for a window's help context number,
  /// beside the help file.
  void ShowHelpContext(const std::string& helpFile, int number, const std::string& topic);

  /// The address of a page: in the user's "HelpDirectory", or else in "Help" below the program
  /// folder. Paths stand in it unchanged.
  std::string HelpTopicUrl(const std::string& Context, const std::string& Topic) const;

 private:
  /// Tells the user where there is no browser.
  void OpenWebPage(const std::string& Address);
  /// Whether there is no browser. Tells the user where the page is not opened.
  bool BrowseUrl(const std::string& Address);

  const Application& application_;
  RegistrySupport registry_;
  BrowserFactory& browsers_;
  MessageBox& messageBox_;
};

}  // namespace sentrel
