#include "export/export_engine.h"

#include <functional>

#include "export_fixture.h"

namespace sentrel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class ExportEngineTest : public ExportFixture {
 protected:
  ExportEngine engine_{Services()};
};

const std::vector<std::string> kPushOrder = {"ProgramName",
                                             "ProgramVersion",
                                             "Title",
                                             "SubTitle",
                                             "Paragraph",
                                             "Footer",
                                             "ImageHeight",
                                             "ImageWidth",
                                             "ImageFormat",
                                             "FileFormat",
                                             "Orientation",
                                             "TargetFilename",
                                             "InitDir",
                                             "ColumnList",
                                             "SelectMethod",
                                             "SkipFieldSelection",
                                             "SkipFilenameSelection",
                                             "Quiet",
                                             "DefaultPrinter"};

std::vector<std::string> Operation(const std::string& call) {
  std::vector<std::string> calls{"Create"};
  calls.insert(calls.end(), kPushOrder.begin(), kPushOrder.end());
  calls.push_back(call);
  calls.push_back("TargetFilename?");
  return calls;
}

TEST_F(ExportEngineTest, PushesEverySettingInOrderMakesOneCallAndReadsTheFileBack) {
  EXPECT_TRUE(engine_.ExportTable(table_, "CDF"));
  EXPECT_EQ(log_.calls, Operation("ExportTable(CDF, /opt/sentrel)"));
  EXPECT_EQ(script_.table, &table_);
  EXPECT_EQ(script_.alive, 0);
}

TEST_F(ExportEngineTest, PushesTheDefaults) {
  engine_.ExportTable(table_, "CDF");
  const std::map<std::string, std::string> defaults = {{"ProgramName", "Sentrel"},
                                                       {"ProgramVersion", "9.2.47"},
                                                       {"Title", ""},
                                                       {"SubTitle", ""},
                                                       {"Paragraph", ""},
                                                       {"Footer", ""},
                                                       {"Orientation", "1"},
                                                       {"ImageHeight", "400"},
                                                       {"ImageWidth", "640"},
                                                       {"TargetFilename", ""},
                                                       {"InitDir", ""},
                                                       {"ImageFormat", "GIF"},
                                                       {"ColumnList", ""},
                                                       {"FileFormat", ""},
                                                       {"SelectMethod", "false"},
                                                       {"SkipFieldSelection", "false"},
                                                       {"Quiet", "false"},
                                                       {"SkipFilenameSelection", "false"},
                                                       {"DefaultPrinter", ""}};
  EXPECT_EQ(script_.properties, defaults);
}

void SetAll(ExportEngine& engine) {
  engine.SetProgramName("name");
  engine.SetProgramVersion("version");
  engine.SetTitle("title");
  engine.SetSubTitle("subtitle");
  engine.SetParagraph("paragraph");
  engine.SetFooter("footer");
  engine.SetOrientation(2);
  engine.SetImageHeight(-3);
  engine.SetImageWidth(4);
  engine.SetTargetFilename("file");
  engine.SetInitDir("dir");
  engine.SetImageFormat("BMP");
  engine.SetColumnList("a,b");
  engine.SetFileFormat("format");
  engine.SetSelectMethod(true);
  engine.SetSkipFieldSelection(true);
  engine.SetSkipFilenameSelection(true);
  engine.SetQuiet(true);
  engine.SetDefaultPrinter("printer");
}

const std::map<std::string, std::string> kAllSet = {{"ProgramName", "name"},
                                                    {"ProgramVersion", "version"},
                                                    {"Title", "title"},
                                                    {"SubTitle", "subtitle"},
                                                    {"Paragraph", "paragraph"},
                                                    {"Footer", "footer"},
                                                    {"Orientation", "2"},
                                                    {"ImageHeight", "-3"},
                                                    {"ImageWidth", "4"},
                                                    {"TargetFilename", "file"},
                                                    {"InitDir", "dir"},
                                                    {"ImageFormat", "BMP"},
                                                    {"ColumnList", "a,b"},
                                                    {"FileFormat", "format"},
                                                    {"SelectMethod", "true"},
                                                    {"SkipFieldSelection", "true"},
                                                    {"Quiet", "true"},
                                                    {"SkipFilenameSelection", "true"},
                                                    {"DefaultPrinter", "printer"}};

TEST_F(ExportEngineTest, PushesWhatWasSetAndThenHoldsTheDefaultsAndTheProducedFile) {
  SetAll(engine_);
  engine_.ExportTable(table_, "PDF");
  EXPECT_EQ(script_.properties, kAllSet);
  EXPECT_EQ(engine_.TargetFilename(), "/tmp/produced");
  EXPECT_EQ(engine_.Title(), "");
  EXPECT_EQ(engine_.Orientation(), 1);
  EXPECT_FALSE(engine_.Quiet());

  script_.properties.clear();
  engine_.PrintTable(table_);
  EXPECT_EQ(script_.properties["TargetFilename"], "/tmp/produced");
  EXPECT_EQ(script_.properties["ProgramName"], "Sentrel");
}

TEST_F(ExportEngineTest, APropertyThatTheEngineLacksIsPassedOver) {
  log_.failing = "Footer";
  EXPECT_TRUE(engine_.ExportTable(table_, "PDF"));
  EXPECT_EQ(log_.calls, Operation("ExportTable(PDF, /opt/sentrel)"));
  EXPECT_EQ(script_.properties.count("Footer"), 0u);
}

TEST_F(ExportEngineTest, WithoutAnEngineTheUserIsToldAndNothingChanges) {
  SetAll(engine_);
  log_.failing = "Create";
  EXPECT_FALSE(engine_.ExportTable(table_, "PDF"));
  EXPECT_EQ(messageBox_.text,
            "Cannot start Varnholt Export Engine.\r\n"
            "You may need to reinstall the Varnholt software.\r\n"
            "\r\n"
            "Error= Create fails");
  EXPECT_EQ(messageBox_.title, "Sentrel");
  EXPECT_EQ(messageBox_.icon, MessageIcon::Exclamation);
  EXPECT_THAT(log_.calls, ElementsAre("Create", "MessageBox"));

  log_.failing.clear();
  engine_.ExportTable(table_, "PDF");
  EXPECT_EQ(script_.properties, kAllSet);
}

TEST_F(ExportEngineTest, AFailureOfTheCallIsToldAndCountsAsNotDone) {
  log_.failing = "ExportTable(PDF, /opt/sentrel)";
  engine_.SetTitle("title");
  EXPECT_FALSE(engine_.ExportTable(table_, "PDF"));
  EXPECT_EQ(messageBox_.text, "ExportTable(PDF, /opt/sentrel) fails");
  EXPECT_EQ(engine_.Title(), "");
  EXPECT_EQ(engine_.TargetFilename(), "/tmp/produced");

  log_.calls.clear();
  engine_.SetQuiet(true);
  EXPECT_FALSE(engine_.ExportTable(table_, "PDF"));
  EXPECT_THAT(log_.calls, Not(Contains("MessageBox")));
}

TEST_F(ExportEngineTest, EveryKindGoesToItsOwnCall) {
  const struct {
    std::function<void(bool)> print;
    std::string before;
    std::string after;
  } kinds[] = {
      {[&](bool p) { engine_.PrintTable(table_, p); }, "ExportTable(", ", /opt/sentrel)"},
      {[&](bool p) { engine_.PrintRTF("x", p); }, "ExportRTF(x, ", ", /opt/sentrel)"},
      {[&](bool p) { engine_.PrintText("x", p); }, "ExportText(x, ", ", /opt/sentrel)"},
      {[&](bool p) { engine_.PrintTextFile("x", p); }, "ExportTextFile(x, ", ")"},
      {[&](bool p) { engine_.PrintEMFFile("x", p); }, "ExportEMFFile(x, ", ", /opt/sentrel)"},
      {[&](bool p) { engine_.PrintChart({}, p); }, "ExportChart(", ", /opt/sentrel)"},
      {[&](bool p) { engine_.PrintMap({}, p); }, "ExportMap(", ")"},
      {[&](bool p) { engine_.PrintPicture({}, p); }, "ExportPicture(", ", /opt/sentrel)"},
      {[&](bool p) { engine_.PrintImageFile("x", p); }, "ExportImageFile(x, ", ", /opt/sentrel)"},
  };
  for (const auto& kind : kinds) {
    log_.calls.clear();
    kind.print(false);
    EXPECT_EQ(log_.calls, Operation(kind.before + "PRINTER" + kind.after));
    log_.calls.clear();
    kind.print(true);
    EXPECT_EQ(log_.calls, Operation(kind.before + "PREVIEW" + kind.after));
  }
}

TEST_F(ExportEngineTest, AnEmptyFormatOfAPictureBecomesTheMethod) {
  const struct {
    std::function<void()> call;
    const char* fileFormat;
    const char* imageFormat;
  } kinds[] = {
      {[&] { engine_.ExportChart({}, "PNG"); }, "PNG", "PNG"},
      {[&] { engine_.ExportMap({}, "PNG"); }, "PNG", "PNG"},
      {[&] { engine_.ExportPicture({}, "PNG"); }, "", "PNG"},
      {[&] { engine_.ExportImageFile("x", "PNG"); }, "", "PNG"},
      {[&] { engine_.ExportTable(table_, "PNG"); }, "", ""},
      {[&] { engine_.ExportEMFFile("x", "PNG"); }, "", ""},
  };
  for (const auto& kind : kinds) {
    engine_.SetImageFormat("");
    kind.call();
    EXPECT_EQ(script_.properties["FileFormat"], kind.fileFormat);
    EXPECT_EQ(script_.properties["ImageFormat"], kind.imageFormat);
  }
  engine_.PrintChart({}, true);
  EXPECT_EQ(script_.properties["FileFormat"], "PREVIEW");
  EXPECT_EQ(script_.properties["ImageFormat"], "GIF");
}

TEST_F(ExportEngineTest, TellsThatThereIsNoPrinter) {
  EXPECT_FALSE(engine_.NoPrinters());
  EXPECT_TRUE(log_.calls.empty());
  printers_.count = 0;
  EXPECT_TRUE(engine_.NoPrinters());
  EXPECT_EQ(messageBox_.text,
            "You do not have a Printer installed.\r\n"
            "You must install a Printer before you can print.");
  EXPECT_EQ(messageBox_.icon, MessageIcon::CriticalStop);
}

}  // namespace
}  // namespace sentrel
