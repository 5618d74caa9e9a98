#include "controls/tool_bars.h"

#include <gmock/gmock.h>

#include <set>

#include "common/failure.h"
#include "common/text.h"

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
  tools.Choose(tools.Tools("Edit:Raw"));
  tools.Choose(tools.Tools("Edit:Raw"));
  tools.Choose(tools.Tools("Edit:Copy"));
  EXPECT_THAT(events, ElementsAre("Edit:Raw 1", "Edit:Raw 0", "Edit:Copy 0"));
}

TEST_F(ToolBarsTest, OnlyAWriteThatDiffersRaisesTheEvent) {
  Tool& pause = tools.Tools("Edit:Pause");
  pause.SetState(0);
  pause.SetState(1);
  pause.SetState(1);
  EXPECT_THAT(events, ElementsAre("Edit:Pause 1"));
}

TEST_F(ToolBarsTest, OpeningASubmenuIsNoChoice) {
  tools.Choose(tools.Tools("Menu:File"));
  EXPECT_THAT(events, ElementsAre());
}

TEST_F(ToolBarsTest, ToolsAreFoundWhateverTheCase) {
  EXPECT_EQ(&tools.Tools("EDIT:raw"), &tools.Tools("Edit:Raw"));
  EXPECT_THROW(tools.Tools("Edit:Paste"), Failure);
}

std::set<std::string> Placed() {
  std::set<std::string> placed;
  for (const auto* lists : {&AllMenus(), &AllBands()}) {
    for (const ToolList& list : *lists) {
      for (const ToolPlace& place : list.places) placed.emplace(place.tool);
    }
  }
  return placed;
}

TEST(ToolTable, EveryPlaceNamesAToolAndOnlyTheFilterToolsHaveNone) {
  const std::set<std::string> placed = Placed();
  std::set<std::string> unplaced;
  std::set<std::string> known{""};
  for (const ToolDesign& tool : AllTools()) {
    EXPECT_TRUE(known.emplace(tool.id).second) << tool.id << " stands twice";
    if (!placed.contains(std::string(tool.id))) unplaced.emplace(tool.id);
  }
  EXPECT_THAT(unplaced, ElementsAre("Edit:ApplyFilter", "Edit:RemoveFilter"));
  for (const std::string& id : placed) EXPECT_TRUE(known.contains(id)) << id;
}

TEST(ToolTable, EverySubmenuHasAMenu) {
  std::set<std::string_view> menus;
  for (const ToolList& menu : AllMenus()) menus.insert(menu.name);
  for (const ToolDesign& tool : AllTools()) {
    EXPECT_EQ(menus.contains(tool.id), tool.kind == ToolKind::Submenu) << tool.id;
  }
}

TEST(ToolTable, EveryCaptionHasOneAccessLetter) {
  for (const ToolDesign& tool : AllTools()) {
    EXPECT_EQ(Split(tool.caption, "&").size(), 2) << tool.caption;
    EXPECT_NE(tool.caption.back(), '&');
  }
}

}  // namespace
}  // namespace sentrel
