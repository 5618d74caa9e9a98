#include "export_fixture.h"

namespace sentrel {
namespace {

using testing::Contains;
using testing::Not;

using ExportSendTest = ExportFixture;

TEST_F(ExportSendTest, ObjectsGoInTheFormatThatSuitsTheTarget) {
  const struct {
    std::string target, method, fileFormat, selectMethod;
  } targets[] = {{"/usr/bin/viewer", "HTML", "HTML", "true"},
                 {"x.MapiMail", "MHTML", "MHTML", "true"},
                 {"mailcontent", "HTML", "MHTML", "false"}};
  for (const auto& [target, method, fileFormat, selectMethod] : targets) {
    EXPECT_TRUE(engine_.ExportAndSendTable(table_, target));
    EXPECT_EQ(script_.exported["FileFormat"], fileFormat);
    EXPECT_EQ(script_.exported["SelectMethod"], selectMethod);
    EXPECT_EQ(script_.exported["SkipFilenameSelection"], "true");
    EXPECT_EQ(script_.exported["Quiet"], "true");
    EXPECT_EQ(script_.exported["TargetFilename"], "/opt/sentrel/Export");
    EXPECT_THAT(log_.calls, Contains("ExportTable(" + method + ", /opt/sentrel)"));
    EXPECT_EQ(log_.calls.back(), "SendTo(/tmp/produced, " + target + ")");
    EXPECT_EQ(script_.properties["Quiet"], "false");
    EXPECT_EQ(engine_.TargetFilename(), "");
  }
}

TEST_F(ExportSendTest, EveryObjectHasItsFlow) {
  const struct {
    bool sent;
    const char* call;
  } kinds[] = {
      {engine_.ExportAndSendChart({}, "t"), "ExportChart(HTML, /opt/sentrel)"},
      {engine_.ExportAndSendMap({}, "t"), "ExportMap(HTML)"},
      {engine_.ExportAndSendPicture({}, "t"), "ExportPicture(HTML, /opt/sentrel)"},
      {engine_.ExportAndSendEMFFile("f", "t"), "ExportEMFFile(f, HTML, /opt/sentrel)"},
      {engine_.ExportAndSendRTF("r", "t"), "ExportRTF(r, txt, /opt/sentrel)"},
      {engine_.ExportAndSendText("x", "t"), "ExportText(x, txt, /opt/sentrel)"},
  };
  for (const auto& [sent, call] : kinds) {
    EXPECT_TRUE(sent) << call;
    EXPECT_THAT(log_.calls, Contains(call));
  }
  EXPECT_EQ(std::count(log_.calls.begin(), log_.calls.end(), "SendTo(/tmp/produced, t)"), 6);
}

TEST_F(ExportSendTest, TextGoesInTheFormatThatWasSet) {
  const struct {
    std::string format, target, sent;
  } cases[] = {{"", "x.mapimail", "txt"},
               {"html", "x.MAPIMAIL", "MHTML"},
               {"html", "x", "html"},
               {"PDF", "x.mapimail", "PDF"}};
  for (const auto& [format, target, sent] : cases) {
    engine_.SetFileFormat(format);
    engine_.ExportAndSendText("x", target);
    EXPECT_EQ(script_.exported["FileFormat"], sent);
    EXPECT_EQ(script_.exported["SelectMethod"], "true");
    EXPECT_THAT(log_.calls, Contains("ExportText(x, " + sent + ", /opt/sentrel)"));
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
