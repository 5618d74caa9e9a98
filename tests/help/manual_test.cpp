#include <gmock/gmock.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QTextDocument>
#include <QXmlStreamReader>

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

/// What stands in a page of the manual.
struct Page {
  QString title;
  QStringList links;
  QStringList pictures;
  QSet<QString> anchors;
  QSet<QString> elements;
  QString text;
};

/// Fails the test for a page that is not well-formed.
Page ReadPage(const QString& path) {
  Page page;
  QXmlStreamReader reader(ReadText(path));
  while (!reader.atEnd()) {
    reader.readNext();
    if (!reader.isStartElement()) continue;
    const auto attributes = reader.attributes();
    page.elements.insert(reader.name().toString());
    if (attributes.hasAttribute("href")) page.links << attributes.value("href").toString();
    if (attributes.hasAttribute("src")) page.pictures << attributes.value("src").toString();
    if (attributes.hasAttribute("id")) page.anchors.insert(attributes.value("id").toString());
  }
  EXPECT_FALSE(reader.hasError()) << path.toStdString() << ": "
                                  << reader.errorString().toStdString() << " in line "
                                  << reader.lineNumber();
  QTextDocument document;
  document.setHtml(ReadText(path));
  page.title = document.metaInformation(QTextDocument::DocumentTitle);
  page.text = document.toPlainText().simplified();
  return page;
}

struct ManualTest : testing::Test {
  ManualTest() {
    const QStringList names = QDir(HELP_FOLDER).entryList({"*.htm", "*.html"}, QDir::Files);
    for (const QString& name : names) pages[name] = ReadPage(QString(HELP_FOLDER) + "/" + name);
  }
  QString AllText() const {
    QString text;
    for (const Page& page : pages) text += page.text + "\n";
    return text;
  }

  QMap<QString, Page> pages;
};

TEST_F(ManualTest, EveryLinkLeadsSomewhere) {
  for (auto page = pages.cbegin(); page != pages.cend(); ++page) {
    for (const QString& link : page->links) {
      const QString where = page.key() + " -> " + link;
      const QString target = link.section('#', 0, 0);
      const QString anchor = link.section('#', 1);
      EXPECT_TRUE(QFile::exists(QString(HELP_FOLDER) + "/" + target)) << where.toStdString();
      EXPECT_TRUE(anchor.isEmpty() || pages[target].anchors.contains(anchor))
          << where.toStdString();
    }
  }
}

TEST_F(ManualTest, TheContentsListEveryPage) {
  for (const QString& name : pages.keys()) {
    const bool listed = pages["default.htm"].links.contains(name);
    EXPECT_TRUE(listed || name == "default.htm") << name.toStdString();
  }
}

TEST_F(ManualTest, EveryPictureIsThereAndUsed) {
  QSet<QString> used;
  for (const Page& page : pages) {
    for (const QString& picture : page.pictures) {
      EXPECT_FALSE(QImage(QString(HELP_FOLDER) + "/" + picture).isNull()) << picture.toStdString();
      used.insert(QFileInfo(picture).fileName());
    }
  }
  const QStringList kept = QDir(QString(HELP_FOLDER) + "/pictures").entryList(QDir::Files);
  for (const QString& name : kept) EXPECT_TRUE(used.contains(name)) << name.toStdString();
}

TEST_F(ManualTest, EveryPageHasATitleAndNoScript) {
  QSet<QString> titles;
  for (const Page& page : pages) {
    EXPECT_FALSE(page.title.isEmpty());
    EXPECT_FALSE(titles.contains(page.title)) << page.title.toStdString();
    titles.insert(page.title);
    EXPECT_FALSE(page.elements.contains("script")) << page.title.toStdString();
    EXPECT_TRUE(page.links.contains("style.css")) << page.title.toStdString();
  }
}

TEST_F(ManualTest, EveryTopicHasItsPage) {
  const std::string entry = std::string("file://") + HELP_FOLDER + "\\default.htm?";
  const std::pair<std::string, const char*> topics[] = {
      {std::string("context=BenchwellDoc&topic=") + kIntroductionTopic, "default.htm"},
      {std::string("context=BenchwellDoc&topic=") + kSentrelTopic, "sentrel.html"},
      {"context=9100", "sentrel.html"},
  };
  for (const auto& [query, page] : topics)
    EXPECT_EQ(HelpPageAt(entry + query).fileName(), page) << query;
  const QStringList lines =
      ReadText(QString(HELP_FOLDER) + "/" + kTopicFile).split('\n', Qt::SkipEmptyParts);
  for (const QString& line : lines)
    EXPECT_TRUE(pages.contains(line.section(' ', 1))) << line.toStdString();
}

TEST_F(ManualTest, TellsOfEveryToolThatCanBeChosen) {
  const QString commands = pages["commands.html"].text;
  for (const auto* lists : {&AllMenus(), &AllBands()}) {
    for (const ToolList& list : *lists) {
      for (const ToolPlace& place : list.places) {
        const auto& tools = AllTools();
        const auto tool = std::find_if(tools.begin(), tools.end(), [&](const ToolDesign& design) {
          return design.id == place.tool;
        });
        if (tool == tools.end()) continue;
        QString caption = QString::fromUtf8(tool->caption.data(), tool->caption.size()).remove('&');
        caption.remove(QRegularExpression(" \\.+$"));
        EXPECT_TRUE(commands.contains(caption)) << caption.toStdString();
      }
    }
  }
}

TEST_F(ManualTest, TellsOfEverySettingByItsNameInDialogAndStore) {
  const QString text = AllText();
  const char* settings[] = {
      "Decode Trap OIDs",
      "Display raw data, do not decode Trap OIDs",
      "Enable Device Filtering (Only receive SNMP Traps from specific devices)",
      "Add New IP Address, Subnet, or Address Range",
      "Enable SNMP Community Filtering",
      "New SNMP Community String",
      "Remove Selected Filter",
      "Log Traps to a file as they arrive",
      "Logging File",
      "Hostname or IP Address",
      "SNMP Community String",
      "Device Filter Active",
      "Logging Enabled",
      "Log Filename",
      "OID Cache Size",
      "ToolTips",
      "HelpDirectory",
      "Device Filters",
      "Community Strings",
  };
  for (const char* setting : settings) EXPECT_TRUE(text.contains(setting)) << setting;
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

TEST(Manual, LiesBesideTheProgramWhole) {
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
