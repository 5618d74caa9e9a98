#include "decoding/decoder.h"

#include <gtest/gtest.h>

#include "fakes/fake_mib_library.h"
#include "fakes/fake_registry.h"

namespace sentrel {
namespace {

struct DecoderTest : testing::Test {
  void Fill(int entries) {
    for (int i = 0; i < entries; ++i) decoder.GetOID("1.3." + std::to_string(i));
  }

  FakeRegistry registry;
  Settings settings{registry};
  FakeMibLibrary library;
  Decoder decoder{library, settings};
};

TEST_F(DecoderTest, OneObjectForEachDistinctText) {
  const auto first = decoder.GetOID("1.3.6");
  EXPECT_EQ(decoder.GetOID("1.3.6"), first);
  EXPECT_NE(decoder.GetOID("1.3.6 "), first);
  EXPECT_EQ(library.made, 2);
}

TEST_F(DecoderTest, TheCheckRemovesAllOrNothing) {
  struct Case {
    int limit, entries;
    bool removed;
  };
  for (const Case& c :
       {Case{1000, 1000, false}, {1000, 1001, true}, {0, 1, true}, {-5, 1, true}, {-5, 0, true}}) {
    settings.SetOIDCacheSize(c.limit);
    decoder.Forget();
    library.made = 0;
    Fill(c.entries);
    decoder.CheckCacheSize();
    Fill(c.entries);
    EXPECT_EQ(library.made, c.removed ? 2 * c.entries : c.entries) << c.limit << " " << c.entries;
  }
}

TEST_F(DecoderTest, AHeldObjectOutlivesItsRemoval) {
  library.entries["1.3.6"] = {"dod", {}};
  const auto held = decoder.GetOID("1.3.6");
  decoder.Forget();
  EXPECT_EQ(held->Name(), "dod");
  EXPECT_NE(decoder.GetOID("1.3.6"), held);
}

TEST_F(DecoderTest, AFailureLeavesTheTextToBeTriedAnew) {
  for (const char* step : {"MakeOIDObject", "SetOID"}) {
    library.failing = step;
    EXPECT_THROW(decoder.GetOID("1.3.6"), Failure) << step;
  }
  library.failing.clear();
  EXPECT_EQ(decoder.GetOID("1.3.6")->Name(), "1.3.6");
}

}  // namespace
}  // namespace sentrel
