#include "window_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

constexpr const char* kPath = "/opt/sentrel/Sentrel.Toolbars";
constexpr const char* kLoad = "LoadLayout /opt/sentrel/Sentrel.Toolbars";
constexpr const char* kHints = "SetHintTime 10000";

using ToolbarLayoutTest = WindowTest;

TEST_F(ToolbarLayoutTest, OnlyAFileFromBeforeTheFirstDayIsDeleted) {
  const std::pair<FakeFileSystem::File, bool> cases[] = {
      {{{2004, 8, 24, 23, 59, 59}}, false}, {{{2004, 8, 25, 0, 0, 0}}, true},
      {{{2003, 12, 31, 0, 0, 0}}, false},   {{{2004, 9, 1, 0, 0, 0}}, true},
      {{{2005, 1, 1, 0, 0, 0}}, true},      {{{2004, 8, 24, 0, 0, 0}, true}, true}};
  for (const auto& [file, survives] : cases) {
    files.files = {{kPath, file}};
    log.calls.clear();
    layout.LoadToolbarLayout();
    EXPECT_EQ(files.Exists(kPath), survives) << file.created.year << file.created.day;
    EXPECT_THAT(log.calls, ElementsAre(kLoad, kHints)) << "loading is asked for all the same";
  }
}

TEST_F(ToolbarLayoutTest, AMissingFileAndAStepThatFailsArePassedOver) {
  layout.LoadToolbarLayout();
  EXPECT_THAT(log.calls, ElementsAre(kHints));
  log.calls.clear();
  files.files = {{kPath, {{2004, 8, 24, 0, 0, 0}}}};
  files.datesFail = true;
  log.failing = kLoad;
  layout.LoadToolbarLayout();
  EXPECT_TRUE(files.Exists(kPath));
  EXPECT_THAT(log.calls, ElementsAre(kLoad, kHints));
}

}  // namespace
}  // namespace sentrel
