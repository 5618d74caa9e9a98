#pragma once

#include <QString>
#include <QUrl>
#include <string>
#include <vector>

namespace sentrel {

/// The file in a folder of help pages that tells which page a topic has: a topic or a help context
/// number, a blank and the name of a page, on each line.
inline constexpr const char* kTopicFile = "topics.txt";

/// The page at an address as Browser takes it: the page of its "topic", or else its "context",
/// where kTopicFile beside the addressed page has one, else the addressed page itself. Keeps the
/// query. Throws Failure where there is no such page on this machine.
QUrl HelpPageAt(const std::string& address);

/// A page in which the user's words stand.
struct HelpHit {
  QString file;
  QString title;
  /// A line of text around the first of the words.
  QString excerpt;
};

/// The pages in a folder in which all words stand, in any case: those with a word in the title
/// first, then those with more of the words. None for a text without words.
std::vector<HelpHit> SearchHelp(const QString& folder, const QString& words);

}  // namespace sentrel
