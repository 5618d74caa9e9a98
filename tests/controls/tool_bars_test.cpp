#include "controls/tool_bars.h"

#include <gmock/gmock.h>

#include <set>

#include "common/failure.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

/// Notes ids and the states at the time of the event.
struct ToolBarsTest : testing::Test, ToolBarsEvents {
  ToolBarsTest() { tools.SetEvents(this); }
  void ToolBars_ToolClick(const Tool& tool) override {
    events.push_back(std::string(tool.Id()) + " " + std::to_string(tool.State()));
  }

  ToolBars tools;
  std::vector<std::string> events;
};

TEST_F(ToolBarsTest, AChosenCheckToolHasItsNewStateBeforeTheEvent) {
  for (const char* id : {"Edit:Raw", "Edit:Raw", "Edit:Copy", "Menu:File"})
    tools.Choose(tools.Tools(id));
  EXPECT_THAT(events, ElementsAre("Edit:Raw 1", "Edit:Raw 0", "Edit:Copy 0"))
      << "opening a submenu is no choice";
  for (const int state : {0, 1, 1}) tools.Tools("EDIT:pause").SetState(state);
  EXPECT_THAT(events, testing::SizeIs(4)) << "only a write that differs is an event";
  EXPECT_EQ(events.back(), "Edit:Pause 1");
  EXPECT_THROW(tools.Tools("Edit:Paste"), Failure);
}

TEST(ToolTable, EveryPlaceNamesAToolAndEveryToolHasAPlaceButTheFilterTools) {
  std::set<std::string_view> placed;
  for (const auto* lists : {&AllMenus(), &AllBands()}) {
    for (const ToolList& list : *lists) {
      for (const ToolPlace& place : list.places) placed.insert(place.tool);
    }
  }
  std::set<std::string_view> known{"", "Edit:ApplyFilter", "Edit:RemoveFilter"};
  placed.insert(known.begin(), known.end());
  for (const ToolDesign& tool : AllTools()) known.insert(tool.id);
  EXPECT_EQ(placed, known);
  EXPECT_EQ(AllTools().size(), known.size() - 1) << "a tool stands twice";
}

}  // namespace
}  // namespace sentrel
