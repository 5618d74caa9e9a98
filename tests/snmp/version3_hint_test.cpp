#include "snmp/version3_hint.h"

#include <gtest/gtest.h>

namespace sentrel::test {
namespace {

TEST(Version3HintTest, TheLengthOfADigestTellsTheProtocol) {
  EXPECT_EQ(HintOfDigest(24, Authentication::kSha1),
            "The digest has 24 octets, as SHA-256 makes it; the user's key is for SHA.");
  EXPECT_EQ(HintOfDigest(12, Authentication::kSha512),
            "The digest has 12 octets, as MD5 or SHA makes it; the user's key is for SHA-512.");
  EXPECT_EQ(HintOfDigest(5, Authentication::kMd5),
            "The digest has 5 octets, which no protocol makes; the user's key is for MD5.");
  EXPECT_EQ(
      HintOfDigest(48, Authentication::kSha512),
      "The digest is as long as SHA-512 makes it, so the passphrase is probably another one.");
  EXPECT_EQ(HintOfDigest(12, Authentication::kNone), "");
}

TEST(Version3HintTest, KnownUsersTellWhatIsOtherwise) {
  Version3User fixed;
  fixed.name = "Ops";
  fixed.engine = "\x80\x01\x02\x03\xff";
  const std::vector<Version3User> known = {fixed};
  EXPECT_EQ(HintOfUser("Ops", known), "This user is known for the engine 0x80010203ff alone.");
  EXPECT_EQ(HintOfUser("ops", known), "A user \"Ops\" is known: case counts.");
  EXPECT_EQ(HintOfUser("other", known), "");
}

TEST(Version3HintTest, MomentsAreToldInPlainWords) {
  EXPECT_EQ(HintOfMoment({4, 10}, EngineMoment{5, 1'000}),
            "It says start 4, second 10; this engine has been heard at start 5, second 1000.");
  EXPECT_EQ(HintOfMoment({4, 10}, std::nullopt), "");
  EXPECT_NE(HintOfMoment({ReplayCheck::kMostBoots, 10}, std::nullopt), "");
}

}  // namespace
}  // namespace sentrel::test
