#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include "common/failure.h"
#include "desktop/help/help_browser.h"
#include "desktop/help/help_key.h"
#include "desktop/help/help_pages.h"
#include "dialogs.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::MatchesRegex;

/// A manual of three pages.
struct HelpPagesTest : testing::Test {
  HelpPagesTest() {
    Write("default.htm", "Contents", "<a href='one.html'>the one</a> <a href='http://a.b'>out</a>");
    Write("one.html", "Filters", "<p>Subnets and filters, filters.</p>");
    Write("two.html", "Logs", "<p>Nothing is FILTERED here &amp; now.</p>");
    QFile topics(folder.filePath(kTopicFile));
    EXPECT_TRUE(topics.open(QFile::WriteOnly));
    topics.write("9100 one.html\nTopicTwo two.html\nGone gone.html\n");
  }
  void Write(const QString& name, const QString& title, const QString& body) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.write(("<html><head><title>" + title + "</title></head><body><h1>" + title + "</h1>" +
                body + "</body></html>")
                   .toUtf8());
  }
  std::string Address(const char* rest) const { return "file://" + Folder() + rest; }
  std::string Folder() const { return folder.path().toStdString(); }

  QTemporaryDir folder;
};

TEST_F(HelpPagesTest, FindsThePageOfATopic) {
  struct Case {
    const char* rest;
    const char* page;
    const char* query;
  };
  const Case cases[] = {
      {"\\default.htm?context=Doc&topic=TopicTwo", "two.html", "context=Doc&topic=TopicTwo"},
      {"\\default.htm?context=9100", "one.html", "context=9100"},
      {"/default.htm?context=Doc&topic=Unheard", "default.htm", "context=Doc&topic=Unheard"},
      {"\\\\default.htm", "default.htm", ""},
      {"/one.html", "one.html", ""},
  };
  for (const Case& c : cases) {
    const QUrl url = HelpPageAt(Address(c.rest));
    EXPECT_EQ(url.toLocalFile().toStdString(), Folder() + "/" + c.page) << c.rest;
    EXPECT_EQ(url.query().toStdString(), c.query);
  }
}

TEST_F(HelpPagesTest, RefusesWhatIsNoPage) {
  EXPECT_THROW(HelpPageAt(Address("\\gone.htm?context=9100")), Failure);
  EXPECT_THROW(HelpPageAt(Address("\\default.htm?topic=Gone")), Failure);
  EXPECT_THROW(HelpPageAt(Address("")), Failure) << "a folder";
  EXPECT_THROW(HelpPageAt("file://D:\\Docs\\default.htm?context=9100"), Failure);
  EXPECT_THROW(HelpPageAt("https://a.example/default.htm"), Failure);
  EXPECT_THROW(HelpPageAt(""), Failure);
}

TEST_F(HelpPagesTest, KeepsOddLettersOfAFolder) {
  QDir(folder.path()).mkdir("a #b%20 c?d");
  QFile::copy(folder.filePath("one.html"), folder.filePath("a #b%20 c?d/one.html"));
  const QUrl url = HelpPageAt(Address("\\a #b%20 c?d\\one.html?context=9100"));
  EXPECT_EQ(url.toLocalFile(), folder.filePath("a #b%20 c?d/one.html"));
}

TEST_F(HelpPagesTest, SearchesAllPagesTitlesFirst) {
  const auto titles = [&](const char* words) {
    std::vector<std::string> found;
    for (const HelpHit& hit : SearchHelp(folder.path(), words))
      found.push_back(hit.title.toStdString());
    return found;
  };
  EXPECT_THAT(titles("filter"), ElementsAre("Filters", "Logs"));
  EXPECT_THAT(titles("nothing filter"), ElementsAre("Logs"));
  EXPECT_THAT(titles("elsewhere"), ElementsAre());
  EXPECT_THAT(titles("  "), ElementsAre());
}

TEST_F(HelpPagesTest, TellsWholeWordsAroundTheFirstHit) {
  Write("long.html", "Long",
        "<p>" + QString("filler ").repeated(20) + "needle " + QString("rest ").repeated(40) +
            "end</p>");
  const auto excerpt = [&](const char* words) {
    return SearchHelp(folder.path(), words)[0].excerpt.toStdString();
  };
  EXPECT_EQ(excerpt("now"), "Nothing is FILTERED here & now.");
  EXPECT_THAT(excerpt("needle"), MatchesRegex("… (filler )+needle (rest )+…"));
  EXPECT_THAT(excerpt("Long"), MatchesRegex("(filler )+needle (rest )+…"));
}

struct HelpWindowTest : HelpPagesTest {
  HelpWindowTest() { mainWindow.show(); }

  void Browse(const char* rest) { browsers.Create()->Browse(Address(rest)); }
  /// The help window; null while it is not shown.
  HelpWindow* Window() const {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* window = qobject_cast<HelpWindow*>(widget);
      if (window && window->isVisible()) return window;
    }
    return nullptr;
  }
  HelpView& View() const { return *Window()->findChild<HelpView*>("Page"); }
  std::string Shown() const { return View().source().fileName().toStdString(); }
  void Choose(const char* tool) const { Window()->findChild<QAction*>(tool)->trigger(); }

  QWidget mainWindow;
  HelpBrowserFactory browsers{mainWindow};
};

TEST_F(HelpWindowTest, GoesBackForwardAndToTheContents) {
  Browse("\\default.htm?context=9100");
  EXPECT_EQ(Shown(), "one.html");
  EXPECT_EQ(Window()->windowTitle(), "Filters - Sentrel Help");
  Choose("Contents");
  EXPECT_EQ(Shown(), "default.htm");
  Choose("Back");
  EXPECT_EQ(Shown(), "one.html");
  EXPECT_FALSE(Window()->findChild<QAction*>("Back")->isEnabled());
  Choose("Forward");
  EXPECT_EQ(Shown(), "default.htm");
}

TEST_F(HelpWindowTest, ListsWhereTheWordsStandAndMarksThem) {
  Browse("/default.htm");
  auto* search = Window()->findChild<QLineEdit*>("Search");
  QTest::keyClicks(search, "filter");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_TRUE(View().toPlainText().contains("Pages with these words: 2"));
  View().setSource(QUrl::fromLocalFile(folder.filePath("one.html")));
  EXPECT_EQ(View().extraSelections().size(), 3);
  Choose("Back");
  EXPECT_TRUE(View().toPlainText().contains("Pages with these words: 2"));

  search->clear();
  QTest::keyClicks(search, "<b>& \"?#%41");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_TRUE(View().toPlainText().startsWith("<b>& \"?#%41")) << "words are no markup";
}

TEST_F(HelpWindowTest, FollowsLinksWithinTheManualOnly) {
  Browse("/default.htm");
  View().setSource(QUrl("http://a.b"));
  EXPECT_EQ(Shown(), "default.htm");
  View().setSource(QUrl("file:///etc/passwd"));
  EXPECT_EQ(Shown(), "default.htm");
  View().setSource(QUrl("one.html"));
  EXPECT_EQ(Shown(), "one.html");
}

TEST_F(HelpWindowTest, PrintsThePageIntoAFileButIntoNoPipe) {
  Browse("/one.html");
  const QString file = folder.filePath("one.pdf");
  const QString pipe = folder.filePath("pipe");
  ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
  User user;
  user.When("PrintHelp", [&](QWidget& dialog) {
    auto& name = *dialog.findChild<QLineEdit*>("filename");
    EXPECT_FALSE(dialog.findChild<QSpinBox*>("copies")->isEnabled()) << "a file has no copies";
    name.setText(pipe);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "whoever opens a pipe waits for its reader";
    name.setText(file);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Choose("Print");
  QProcess reader;
  reader.start("pdftotext", {file, "-"});
  ASSERT_TRUE(reader.waitForFinished());
  EXPECT_THAT(reader.readAllStandardOutput().toStdString(), testing::HasSubstr("Subnets and "));
}

TEST_F(HelpWindowTest, AFailureLeavesTheWindowAsItWas) {
  EXPECT_THROW(Browse("/gone.html"), Failure);
  EXPECT_EQ(Window(), nullptr);
  Browse("/one.html");
  EXPECT_THROW(Browse("/gone.html"), Failure);
  EXPECT_EQ(Shown(), "one.html");
}

TEST_F(HelpWindowTest, ClosesByEscapeAndWithTheMainWindow) {
  Browse("/one.html");
  Window()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(Window()));
  QTest::keyClick(Window(), Qt::Key_Escape);
  EXPECT_EQ(Window(), nullptr);
  Browse("/one.html");
  ASSERT_NE(Window(), nullptr);
  mainWindow.hide();
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(HelpWindowTest, CanBeUsedWhileADialogIsOpen) {
  Browse("/one.html");
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  Browse("/two.html");
  EXPECT_EQ(Window()->windowHandle()->transientParent(), dialog.windowHandle());
  auto* search = Window()->findChild<QLineEdit*>("Search");
  QTest::keyClicks(search, "log");
  EXPECT_EQ(search->text(), "log");
}

TEST(HelpKey, GivesTheNumberOfTheWindowItIsPressedIn) {
  std::vector<int> numbers;
  std::vector<std::string> topics;
  const HelpKey key([&](int number, const std::string& topic) {
    numbers.push_back(number);
    topics.push_back(topic);
  });
  QWidget window;
  window.setProperty("helpContext", 9100);
  auto* edit = new QLineEdit(&window);
  QDialog dialog(&window);
  auto* box = new QLineEdit(&dialog);
  QTest::keyClick(edit, Qt::Key_F1);
  QTest::keyClick(&window, Qt::Key_Help);
  QTest::keyClick(box, Qt::Key_F1);
  dialog.setProperty("helpContext", 7);
  QTest::keyClick(box, Qt::Key_F1);
  dialog.setProperty("helpTopic", "Filters");
  QTest::keyClick(box, Qt::Key_F1);
  EXPECT_THAT(numbers, ElementsAre(9100, 9100, 9100, 7, 7));
  EXPECT_THAT(topics, ElementsAre("", "", "", "", "Filters"));

  QTest::keyClick(edit, Qt::Key_F1, Qt::ShiftModifier);
  QTest::keyClick(edit, Qt::Key_F2);
  QLineEdit elsewhere;
  QTest::keyClick(&elsewhere, Qt::Key_F1);
  EXPECT_EQ(numbers.size(), 5U);
}

}  // namespace
}  // namespace sentrel
