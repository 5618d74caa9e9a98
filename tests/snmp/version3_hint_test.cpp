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

}  // namespace
}  // namespace sentrel::test
