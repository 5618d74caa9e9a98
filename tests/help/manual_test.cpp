#include <gmock/gmock.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include "controls/tool_table.h"
#include "desktop/help/help_pages.h"
#include "shell/help_benchwell.h"
#include "shell/tip_file.h"
#include "shell/tip_of_the_day.h"

namespace sentrel {
namespace {

QString ReadText(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

TEST(Manual, EveryTopicHasItsPage) {
  const std::string entry = std::string("file://") + HELP_FOLDER + "\\default.htm?";
  const std::pair<std::string, const char*> topics[] = {
      {std::string("context=BenchwellDoc&topic=") + kIntroductionTopic, "default.htm"},
      {std::string("context=BenchwellDoc&topic=") + kSentrelTopic, "sentrel.html"},
      {"context=9100", "sentrel.html"},
  };
  for (const auto& [query, page] : topics)
    EXPECT_EQ(HelpPageAt(entry + query).fileName(), page) << query;
  const QDir help(HELP_FOLDER);
  for (const QString& line : ReadText(help.filePath(kTopicFile)).split('\n', Qt::SkipEmptyParts))
    EXPECT_TRUE(help.exists(line.section(' ', 1))) << line.toStdString();
}

TEST(Manual, TellsOfEveryToolThatCanBeChosen) {
  const QString commands = ReadText(QString(HELP_FOLDER) + "/commands.html").simplified();
  for (const auto* lists : {&AllMenus(), &AllBands()}) {
    for (const ToolList& list : *lists) {
      for (const ToolPlace& place : list.places) {
        const auto& tools = AllTools();
        const auto tool = std::find_if(tools.begin(), tools.end(), [&](const ToolDesign& design) {
          return design.id == place.tool;
        });
        if (tool == tools.end()) continue;
        QString caption = QString::fromStdString(std::string(tool->caption)).remove('&');
        caption.remove(QRegularExpression(" \\.+$"));
        EXPECT_TRUE(commands.contains(caption)) << caption.toStdString();
      }
    }
  }
}

TEST(Tips, AreManyAndEachHasItsOwnTitle) {
  const QString path = QString(TIPS_FOLDER) + "/" + kTipSet + ".txt";
  const auto tips = ReadTips(ReadText(path).toStdString());
  EXPECT_GE(tips.size(), 20U);
  std::set<std::string> titles;
  for (const Tip& tip : tips) {
    EXPECT_TRUE(titles.insert(tip.title).second) << tip.title;
    EXPECT_LT(tip.title.size(), 50U) << tip.title;
    EXPECT_LT(tip.text.size(), 260U) << tip.title;
  }
}

TEST(Manual, IsBesideTheProgramAsAWhole) {
  for (const auto& [source, copy] : {std::pair(QString(HELP_FOLDER), QString("/Help/")),
                                     std::pair(QString(TIPS_FOLDER), QString("/tips/"))}) {
    QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      const QString name = QDir(source).relativeFilePath(files.next());
      if (name == "CMakeLists.txt") continue;
      EXPECT_TRUE(QFile::exists(INSTALLED_FOLDER + copy + name)) << name.toStdString();
    }
  }
}

}  // namespace
}  // namespace sentrel
