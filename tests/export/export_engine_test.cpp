#include "export/export_engine.h"

#include <functional>

#include "export_fixture.h"

namespace sentrel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

using ExportEngineTest = ExportFixture;
using Properties = std::map<std::string, std::string>;

struct Property {
  const char *name, *standard, *given;
  std::function<void(ExportEngine&)> give;
};

/// In the order in which they are pushed.
const Property kProperties[] = {
    {"ProgramName", "Sentrel", "name", [](auto& e) { e.SetProgramName("name"); }},
    {"ProgramVersion", "9.2.47", "version", [](auto& e) { e.SetProgramVersion("version"); }},
    {"Title", "", "title", [](auto& e) { e.SetTitle("title"); }},
    {"SubTitle", "", "subtitle", [](auto& e) { e.SetSubTitle("subtitle"); }},
    {"Paragraph", "", "paragraph", [](auto& e) { e.SetParagraph("paragraph"); }},
    {"Footer", "", "footer", [](auto& e) { e.SetFooter("footer"); }},
    {"ImageHeight", "400", "-3", [](auto& e) { e.SetImageHeight(-3); }},
    {"ImageWidth", "640", "4", [](auto& e) { e.SetImageWidth(4); }},
    {"ImageFormat", "GIF", "BMP", [](auto& e) { e.SetImageFormat("BMP"); }},
    {"FileFormat", "", "format", [](auto& e) { e.SetFileFormat("format"); }},
    {"Orientation", "1", "2", [](auto& e) { e.SetOrientation(2); }},
    {"TargetFilename", "", "file", [](auto& e) { e.SetTargetFilename("file"); }},
    {"InitDir", "", "dir", [](auto& e) { e.SetInitDir("dir"); }},
    {"ColumnList", "", "a,b", [](auto& e) { e.SetColumnList("a,b"); }},
    {"SelectMethod", "false", "true", [](auto& e) { e.SetSelectMethod(true); }},
    {"SkipFieldSelection", "false", "true", [](auto& e) { e.SetSkipFieldSelection(true); }},
    {"SkipFilenameSelection", "false", "true", [](auto& e) { e.SetSkipFilenameSelection(true); }},
    {"Quiet", "false", "true", [](auto& e) { e.SetQuiet(true); }},
    {"DefaultPrinter", "", "printer", [](auto& e) { e.SetDefaultPrinter("printer"); }},
};

Properties All(const char* Property::*value) {
  Properties all;
  for (const Property& property : kProperties) all[property.name] = property.*value;
  return all;
}

void SetAll(ExportEngine& engine) {
  for (const Property& property : kProperties) property.give(engine);
}

TEST_F(ExportEngineTest, PushesEverySettingInOrderThoughOneFailsMakesOneCallAndReadsTheFileBack) {
  log_.failing = "Footer";
  EXPECT_TRUE(engine_.ExportTable(table_, "CDF"));
  std::vector<std::string> calls{"Create"};
  for (const Property& property : kProperties) calls.emplace_back(property.name);
  calls.insert(calls.end(), {"ExportTable(CDF, /opt/sentrel)", "TargetFilename?"});
  EXPECT_EQ(log_.calls, calls);
  EXPECT_EQ(script_.table, &table_);
}

TEST_F(ExportEngineTest, PushesWhatWasSetAndThenHoldsTheDefaultsAndTheProducedFile) {
  engine_.ExportTable(table_, "PDF");
  EXPECT_EQ(script_.properties, All(&Property::standard));
  SetAll(engine_);
  engine_.ExportTable(table_, "PDF");
  EXPECT_EQ(script_.properties, All(&Property::given));
  engine_.PrintPicture({});
  Properties next = All(&Property::standard);
  next["TargetFilename"] = "/tmp/produced";
  EXPECT_EQ(script_.properties, next);
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
  EXPECT_EQ(script_.properties, All(&Property::given));
}

TEST_F(ExportEngineTest, AFailureOfTheCallIsToldUnlessQuietAndCountsAsNotDone) {
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

TEST_F(ExportEngineTest, EveryKindGoesToItsOwnCallWithItsEmptyFormatsFilledIn) {
  const std::string path = ", /opt/sentrel)";
  const struct {
    std::function<void(bool)> print;
    std::string before, after;
    bool fillsFileFormat, fillsImageFormat;
  } kinds[] = {
      {[&](bool p) { engine_.PrintTable(table_, p); }, "Table(", path, false, false},
      {[&](bool p) { engine_.PrintRTF("x", p); }, "RTF(x, ", path, false, false},
      {[&](bool p) { engine_.PrintText("x", p); }, "Text(x, ", path, false, false},
      {[&](bool p) { engine_.PrintTextFile("x", p); }, "TextFile(x, ", ")", false, false},
      {[&](bool p) { engine_.PrintEMFFile("x", p); }, "EMFFile(x, ", path, false, false},
      {[&](bool p) { engine_.PrintChart({}, p); }, "Chart(", path, true, true},
      {[&](bool p) { engine_.PrintMap({}, p); }, "Map(", ")", true, true},
      {[&](bool p) { engine_.PrintPicture({}, p); }, "Picture(", path, false, true},
      {[&](bool p) { engine_.PrintImageFile("x", p); }, "ImageFile(x, ", path, false, true},
  };
  for (const auto& [print, before, after, fillsFileFormat, fillsImageFormat] : kinds) {
    for (const std::string method : {"PRINTER", "PREVIEW"}) {
      engine_.SetImageFormat("");
      print(method == "PREVIEW");
      std::string call = "Export";
      call.append(before).append(method).append(after);
      EXPECT_EQ(log_.calls.at(log_.calls.size() - 2), call);
      EXPECT_EQ(script_.properties["FileFormat"], fillsFileFormat ? method : "");
      EXPECT_EQ(script_.properties["ImageFormat"], fillsImageFormat ? method : "");
    }
  }
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
