#include <functional>

#include "export_fixture.h"

namespace sentrel {
namespace {

using testing::Contains;
using testing::Not;
using testing::StartsWith;

class ExportSendTest : public ExportFixture {
 protected:
  bool Text(const std::string& target) { return engine_.ExportAndSendText("x", target); }
};

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

TEST_F(ExportSendTest, EveryObjectGoesThroughItsOwnCallAndTextInTheFormatThatWasSet) {
  const struct {
    std::function<bool()> send;
    std::string format, call;
  } kinds[] = {
      {[&] { return engine_.ExportAndSendChart({}, "t"); }, "", "ExportChart(HTML"},
      {[&] { return engine_.ExportAndSendMap({}, "t"); }, "", "ExportMap(HTML"},
      {[&] { return engine_.ExportAndSendPicture({}, "t"); }, "", "ExportPicture(HTML"},
      {[&] { return engine_.ExportAndSendEMFFile("f", "t"); }, "", "ExportEMFFile(f, HTML"},
      {[&] { return engine_.ExportAndSendRTF("r", "t"); }, "", "ExportRTF(r, txt"},
      {[&] { return Text("x.mapimail"); }, "", "ExportText(x, txt"},
      {[&] { return Text("x.MAPIMAIL"); }, "html", "ExportText(x, MHTML"},
      {[&] { return Text("t"); }, "html", "ExportText(x, html"},
      {[&] { return Text("x.mapimail"); }, "PDF", "ExportText(x, PDF"},
  };
  for (const auto& [send, format, call] : kinds) {
    engine_.SetFileFormat(format);
    log_.calls.clear();
    EXPECT_TRUE(send()) << call;
    EXPECT_THAT(log_.calls, Contains(StartsWith(call)));
    EXPECT_THAT(log_.calls.back(), StartsWith("SendTo(/tmp/produced, "));
    EXPECT_EQ(script_.exported["SelectMethod"], "true");
    EXPECT_NE(script_.exported["FileFormat"], "");
  }
}

TEST_F(ExportSendTest, NothingIsSentAfterAnExportThatWasNotDoneOrWithoutAnEngine) {
  script_.done = false;
  engine_.SetTargetFilename("/home/x/Report");
  EXPECT_FALSE(engine_.ExportAndSendTable(table_, "t"));
  EXPECT_EQ(script_.properties["TargetFilename"], "/home/x/Report");
  EXPECT_EQ(engine_.TargetFilename(), "");

  log_.failing = "Create";
  EXPECT_FALSE(engine_.ExportAndSendText("x", "t"));
  EXPECT_EQ(engine_.FileFormat(), "");
  EXPECT_FALSE(engine_.Quiet());
  EXPECT_EQ(std::count(log_.calls.begin(), log_.calls.end(), "MessageBox"), 1);
  EXPECT_THAT(log_.calls, Not(Contains(StartsWith("SendTo"))));
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
