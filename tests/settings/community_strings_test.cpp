#include "settings/community_strings.h"

#include <gmock/gmock.h>

#include "fakes/fake_registry.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommunityStringsTest : public testing::Test {
 protected:
  std::string Stored(int index) {
    return support_.ReadRegistryValue("Sentrel", "Community Strings", index, "(none)", false);
  }

  FakeRegistry registry_;
  RegistrySupport support_{registry_};
  CommunityStrings strings_{support_};
};

TEST_F(CommunityStringsTest, TrimsWhatIsAddedAndComparesExactly) {
  EXPECT_THAT(strings_.CStrings(), IsEmpty());
  for (const char* text : {"  public  ", "public", "Public", "with blank", "\ttab"})
    strings_.Add(text);
  EXPECT_THAT(strings_.CStrings(), ElementsAre("public", "Public", "with blank", "\ttab"));
  EXPECT_TRUE(strings_.Exists("public"));
  for (const char* text : {"public ", "PUBLIC", "", "tab"})
    EXPECT_FALSE(strings_.Exists(text)) << text;
}

TEST_F(CommunityStringsTest, CountStaysPositiveHoweverLongTheList) {
  for (int i = 0; i < 40000; ++i) strings_.Add(std::to_string(i));
  EXPECT_EQ(strings_.Count(), 32767);
}

TEST_F(CommunityStringsTest, SyncLeavesNothingOfALongerList) {
  for (const char* text : {"one", "two", "three"}) strings_.Add(text);
  strings_.Sync();
  EXPECT_EQ(Stored(3), "three");
  strings_.Clear();
  strings_.Add("four");
  strings_.Sync();
  EXPECT_EQ(Stored(1), "four");
  EXPECT_EQ(Stored(2) + Stored(3), "(none)(none)");
  strings_.Clear();
  strings_.Sync();
  strings_.Refresh();
  EXPECT_EQ(strings_.Count(), 0);
}

TEST_F(CommunityStringsTest, LoadsOverHolesInIndexOrder) {
  for (const auto& [index, text] : {std::pair(7, "b"), {2, "a"}, {8, ""}, {9, " a "}, {200, "c"}})
    support_.SaveRegistryValue("Sentrel", "Community Strings", index, text, false);
  strings_.Add("old");
  strings_.Refresh();
  EXPECT_THAT(strings_.CStrings(), ElementsAre("a", "b", "c"));
}

}  // namespace
}  // namespace sentrel
