#include <functional>

#include "export_fixture.h"

namespace sentrel {
namespace {

using testing::Contains;
using testing::Not;

/// Keeps what the first engine of an operation was given, which is the one that exports.
class ExportSendTest : public ExportFixture {
 protected:
  std::string Exported(const std::string& property) { return firstPush_[property]; }
  bool Send(const std::function<bool(ExportEngine&)>& send) {
    log_.calls.clear();
    // An answer of "not done" stops the flow after the export, with its push still in the script.
    script_.done = false;
    send(engine_);
    firstPush_ = script_.properties;
    log_.calls.clear();
    script_.done = true;
    return send(engine_);
  }

  std::map<std::string, std::string> firstPush_;
  ExportEngine engine_{Services()};
};

TEST_F(ExportSendTest, ObjectsGoInTheFormatThatSuitsTheTarget) {
  const struct {
    const char* target;
    const char* method;
    const char* fileFormat;
    const char* selectMethod;
  } targets[] = {{"/usr/bin/viewer", "HTML", "HTML", "true"},
                 {"x.MapiMail", "MHTML", "MHTML", "true"},
                 {"mailcontent", "HTML", "MHTML", "false"}};
  for (const auto& target : targets) {
    EXPECT_TRUE(Send([&](ExportEngine& e) { return e.ExportAndSendTable(table_, target.target); }));
    EXPECT_EQ(Exported("FileFormat"), target.fileFormat);
    EXPECT_EQ(Exported("SelectMethod"), target.selectMethod);
    EXPECT_EQ(Exported("SkipFilenameSelection"), "true");
    EXPECT_EQ(Exported("Quiet"), "true");
    EXPECT_EQ(Exported("TargetFilename"), "/opt/sentrel/Export");
    EXPECT_THAT(log_.calls,
                Contains(std::string("ExportTable(") + target.method + ", /opt/sentrel)"));
    EXPECT_THAT(log_.calls, Contains(std::string("SendTo(/tmp/produced, ") + target.target + ")"));
    EXPECT_EQ(script_.properties["Quiet"], "false");
    EXPECT_EQ(engine_.TargetFilename(), "");
  }
}

TEST_F(ExportSendTest, EveryObjectHasItsFlow) {
  const struct {
    std::function<bool(ExportEngine&)> send;
    const char* call;
  } kinds[] = {
      {[](ExportEngine& e) { return e.ExportAndSendChart({}, "t"); },
       "ExportChart(HTML, /opt/sentrel)"},
      {[](ExportEngine& e) { return e.ExportAndSendMap({}, "t"); }, "ExportMap(HTML)"},
      {[](ExportEngine& e) { return e.ExportAndSendPicture({}, "t"); },
       "ExportPicture(HTML, /opt/sentrel)"},
      {[](ExportEngine& e) { return e.ExportAndSendEMFFile("f", "t"); },
       "ExportEMFFile(f, HTML, /opt/sentrel)"},
      {[](ExportEngine& e) { return e.ExportAndSendRTF("r", "t"); },
       "ExportRTF(r, txt, /opt/sentrel)"},
      {[](ExportEngine& e) { return e.ExportAndSendText("x", "t"); },
       "ExportText(x, txt, /opt/sentrel)"},
  };
  for (const auto& kind : kinds) {
    EXPECT_TRUE(Send(kind.send));
    EXPECT_THAT(log_.calls, Contains(kind.call));
    EXPECT_THAT(log_.calls, Contains("SendTo(/tmp/produced, t)"));
  }
}

TEST_F(ExportSendTest, TextGoesInTheFormatThatWasSet) {
  const struct {
    const char* format;
    const char* target;
    const char* sent;
  } cases[] = {{"", "x.mapimail", "txt"},
               {"html", "x.MAPIMAIL", "MHTML"},
               {"html", "x", "html"},
               {"PDF", "x.mapimail", "PDF"}};
  for (const auto& c : cases) {
    Send([&](ExportEngine& e) {
      e.SetFileFormat(c.format);
      return e.ExportAndSendText("x", c.target);
    });
    EXPECT_EQ(Exported("FileFormat"), c.sent);
    EXPECT_EQ(Exported("SelectMethod"), "true");
    EXPECT_THAT(log_.calls, Contains(std::string("ExportText(x, ") + c.sent + ", /opt/sentrel)"));
  }
}

TEST_F(ExportSendTest, NothingIsSentAfterAnExportThatWasNotDone) {
  script_.done = false;
  engine_.SetTargetFilename("/home/x/Report");
  EXPECT_FALSE(engine_.ExportAndSendTable(table_, "t"));
  EXPECT_EQ(script_.properties["TargetFilename"], "/home/x/Report");
  EXPECT_THAT(log_.calls, Not(Contains(testing::StartsWith("SendTo"))));
  EXPECT_EQ(engine_.TargetFilename(), "");
}

TEST_F(ExportSendTest, WithoutAnEngineTheFlowStillClearsWhatItSet) {
  log_.failing = "Create";
  EXPECT_FALSE(engine_.ExportAndSendText("x", "t"));
  EXPECT_EQ(engine_.FileFormat(), "");
  EXPECT_FALSE(engine_.Quiet());
  EXPECT_EQ(std::count(log_.calls.begin(), log_.calls.end(), "MessageBox"), 1);
}

TEST_F(ExportSendTest, SendToHandsOnTheAnswerAndClearsTheSettings) {
  script_.sendAnswer = "anything";
  engine_.SetTargetFilename("kept?");
  EXPECT_EQ(engine_.SendTo("f", "t"), "anything");
  EXPECT_EQ(engine_.TargetFilename(), "");
  EXPECT_THAT(log_.calls, Not(Contains("TargetFilename?")));

  log_.failing = "SendTo(f, t)";
  EXPECT_EQ(engine_.SendTo("f", "t"), "");
  EXPECT_EQ(messageBox_.text, "SendTo(f, t) fails");
  log_.failing = "Create";
  engine_.SetTitle("stays");
  EXPECT_EQ(engine_.SendTo("f", "t"), "");
  EXPECT_EQ(engine_.Title(), "stays");
}

}  // namespace
}  // namespace sentrel
