#include "console/oid_lookup.h"

#include "console_fixture.h"

namespace sentrel {
namespace {

constexpr const char* kStatus = "1.3.6.1.2.1.2.2.1.8.7";
constexpr const char* kUpTime = "1.3.6.1.2.1.1.3.0";
constexpr const char* kLinkDown = "1.3.6.1.6.3.1.1.5.3";

struct OidLookupTest : ConsoleTest {
  OidLookupTest() {
    mibs.entries[kStatus] = {"ifOperStatus.7", {{0, "zero(0)"}, {1, "up(1)"}, {2, "down(2)"}}};
    mibs.entries[kUpTime] = {"sysUpTime.0", {}};
    mibs.entries[kLinkDown] = {"linkDown", {}};
    mibs.entries["1.3.9"] = {"odd.0.0", {{5, "five(5)"}}};
    mibs.entries["1.3.8.0"] = {"scalar.0", {}};
  }
  std::string Details(const std::string& oid, const std::string& value) {
    std::string line = "> ";
    lookup.LookupOIDDetails(oid, value, line);
    return line.substr(2);
  }
};

TEST_F(OidLookupTest, DecodesNamesAndNamedValues) {
  const struct {
    const char *oid, *value, *line;
  } cases[] = {
      {kUpTime, "12345", "sysUpTime = 12345"},
      {kUpTime, "", "sysUpTime = "},
      {"1.3.6.1.6.3.1.1.4.1.0", kLinkDown, "1.3.6.1.6.3.1.1.4.1 = linkDown"},
      {kUpTime, "1.3.8.0", "sysUpTime = scalar.0"},
      {kStatus, "2", "ifOperStatus.7 = down(2)"},
      {kStatus, "9", "ifOperStatus.7 = 9"},
      {kStatus, "1.5", "ifOperStatus.7 = down(2)"},
      {kStatus, "2.5", "ifOperStatus.7 = down(2)"},
      {kStatus, "2 of 3", "ifOperStatus.7 = down(2)"},
      {kStatus, " +1", "ifOperStatus.7 = up(1)"},
      {kStatus, "-1", "ifOperStatus.7 = -1"},
      {kStatus, "text", "ifOperStatus.7 = zero(0)"},
      {kStatus, "nan", "ifOperStatus.7 = zero(0)"},
      {kStatus, "", "ifOperStatus.7 = zero(0)"},
      {kStatus, "1.3.8.0", "ifOperStatus.7 = up(1)"},
      {kStatus, "2147483648", "ifOperStatus.7 = "},
      {kStatus, "1e999", "ifOperStatus.7 = "},
      {"1.3.9", "text", "odd.0 = text"},
  };
  for (const auto& c : cases) EXPECT_EQ(Details(c.oid, c.value), c.line) << c.value;
}

TEST_F(OidLookupTest, OnlyWhatLooksLikeAnOidIsLookedUpAsAValue) {
  for (const char* text : {"1.3", ".1.3.8.0", "2.5.4.3", ""}) {
    EXPECT_EQ(lookup.LookupOIDValue(text), text);
  }
  EXPECT_EQ(mibs.made, 0);
}

TEST_F(OidLookupTest, AFailingStepLeavesItsPartEmpty) {
  const struct {
    const char *failing, *failingOid, *oid, *value, *line;
  } cases[] = {
      {"MakeOIDObject", "", kStatus, "2", " = "},
      {"Name", kStatus, kStatus, "2", " = down(2)"},
      {"EnumerationList", "", kStatus, "2", "ifOperStatus.7 = down(2)"},
      {"EnumerationName", "", kStatus, "2", "ifOperStatus.7 = "},
      {"Name", kLinkDown, kUpTime, kLinkDown, "sysUpTime = "},
      {"SetOID", kLinkDown, kUpTime, kLinkDown, "sysUpTime = 1.3.6.1.6.3.1.1.5.3"},
  };
  for (const auto& c : cases) {
    decoder.Forget();
    mibs.failing = c.failing;
    mibs.failingOid = c.failingOid;
    EXPECT_EQ(Details(c.oid, c.value), c.line) << c.failing;
  }
}

}  // namespace
}  // namespace sentrel
