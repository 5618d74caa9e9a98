#include "export/trap_export.h"

#include "export/stored_export_memory.h"
#include "export_fixture.h"
#include "fakes/fake_registry.h"

namespace sentrel {
namespace {

class TrapExportTest : public ExportFixture {
 protected:
  FakeMousePointer pointer_{log_};
  TrapExport commands_{table_, pointer_, Services()};
};

TEST_F(TrapExportTest, ExportsTheLiveTableUnderTheHourglassAndSuggestsTheFileAnew) {
  for (const char* method : {"Excel", "PDF"}) {
    log_.calls.clear();
    commands_.ExportTraps(method);
    EXPECT_EQ(log_.calls.front(), "hourglass");
    EXPECT_EQ(log_.calls.back(), "pointer");
    EXPECT_THAT(log_.calls,
                testing::Contains("ExportTable(" + std::string(method) + ", /opt/sentrel)"));
    EXPECT_EQ(script_.table, &table_);
    EXPECT_EQ(script_.properties["Title"], "SNMP Traps");
    EXPECT_EQ(script_.properties["TargetFilename"], "/opt/sentrel/SNMPTraps");
    EXPECT_EQ(script_.properties["Orientation"], "1");
  }
}

TEST_F(TrapExportTest, APrintStartsFromTheFileThatTheLastExportProduced) {
  for (const char* file : {"", "/tmp/produced"}) {
    commands_.PrintTraps();
    EXPECT_THAT(log_.calls, testing::Contains("ExportTable(PRINTER, /opt/sentrel)"));
    EXPECT_EQ(script_.properties["TargetFilename"], file);
    commands_.ExportTraps("PDF");
    log_.calls.clear();
    commands_.PreviewTraps();
    EXPECT_EQ(script_.properties["TargetFilename"], "/tmp/produced");
    EXPECT_EQ(script_.properties["Title"], "SNMP Traps");
    EXPECT_EQ(log_.calls.front(), "Create") << "no hourglass";
    EXPECT_THAT(log_.calls, testing::Contains("ExportTable(PREVIEW, /opt/sentrel)"));
  }
}

TEST_F(TrapExportTest, ThePointerComesBackWhateverFails) {
  for (const char* failing : {"Create", "ExportTable(PDF, /opt/sentrel)"}) {
    log_.failing = failing;
    log_.calls.clear();
    commands_.ExportTraps("PDF");
    EXPECT_EQ(log_.calls.back(), "pointer");
    EXPECT_EQ(std::count(log_.calls.begin(), log_.calls.end(), "MessageBox"), 1);
  }
}

TEST(StoredExportMemory, KeepsTheColumnsForTheNextRunOfThisUser) {
  FakeRegistry registry;
  for (const char* titles : {"", "Community\nIP Address", ""}) {
    StoredExportMemory(registry).SetLeftOutColumns(titles);
    EXPECT_EQ(StoredExportMemory(registry).LeftOutColumns(), titles);
  }
  for (const auto& [place, values] : registry.contents) {
    EXPECT_EQ(place.first, RegistryRoot::HKEY_CURRENT_USER);
  }
}

}  // namespace
}  // namespace sentrel
