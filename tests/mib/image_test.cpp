#include "mib/image.h"

#include <gmock/gmock.h>

#include <fstream>
#include <functional>
#include <random>

#include "common/failure.h"
#include "fakes/shell.h"
#include "mib/image_cache.h"
#include "mib/image_writer.h"
#include "mib/lookup.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

std::string ImageOf(const std::string& definitions) {
  const Workshop workshop;
  Collection collection({workshop.Write("a", ModuleText("A-MIB", definitions))}, {});
  return MakeImage(collection.Compile({}), 42);
}

std::string SampleImage() {
  return ImageOf(
      "s OBJECT-TYPE SYNTAX INTEGER { up(1), down(2) } ::= { iso 7 }\n"
      "t OBJECT IDENTIFIER ::= { iso 4294967295 }");
}

/// An image of many blocks.
std::string LargeImage() {
  std::string text;
  for (int i = 1; i <= 8000; ++i) {
    const std::string n = std::to_string(i);
    text += Join(
        {"x", n, " OBJECT-TYPE SYNTAX INTEGER { up(1), down", n, "(2) } ::= { iso 7 ", n, " }\n"});
  }
  return ImageOf(text);
}

std::shared_ptr<const Image> Open(const std::string& bytes) {
  auto copy = std::make_shared<std::string>(bytes);
  return Image::Over(*copy, copy);
}

TEST(Image, TellsWhatWasCompiled) {
  const Database image(Open(SampleImage()));
  EXPECT_EQ(image.Images()[0]->Fingerprint(), 42);
  EXPECT_EQ(LookUp(image, "1.4294967295").name, "t");
  EXPECT_EQ(LookUp(image, "1.8").name, "1.8");
  EXPECT_EQ(LabelOf(LookUp(image, "1.7.0").type, 3), "unknown(0)");
  EXPECT_EQ(LabelOf(LookUp(image, "1.8").type, 0), "unknown(0)");
}

TEST(Image, EveryDamageIsFound) {
  const std::string good = SampleImage();
  for (size_t at = 0; at < good.size(); ++at) {
    std::string bad = good;
    bad[at] = static_cast<char>(bad[at] ^ 0x10);
    EXPECT_THROW(Open(bad), Failure) << at;
    EXPECT_THROW(Open(good.substr(0, at)), Failure) << at;
  }
  EXPECT_THROW(Open(good + "x"), Failure);
}

/// Either the damage is met or the answer is what it would have been without it.
TEST(Image, DamageIsNeverBelievedWhenOnlyWhatIsReadIsChecked) {
  const std::string good = LargeImage();
  ASSERT_GT(good.size(), 10 * format::kBlock);
  std::mt19937 random(1);
  int met = 0;
  for (int turn = 0; turn < 2000; ++turn) {
    auto bad = std::make_shared<std::string>(good);
    char& byte = (*bad)[random() % bad->size()];
    byte = static_cast<char>(byte ^ (1 << random() % 8));
    try {
      const Database image(Image::Over(*bad, bad, DamageCheck::WhenRead));
      const Lookup found = LookUp(image, "1.7.4000.5");
      EXPECT_EQ(found.name, "x4000.5");
      EXPECT_EQ(ListOf(found.type), "up(1),down4000(2)");
    } catch (const Failure&) {
      ++met;
    }
  }
  EXPECT_GT(met, 0);
  EXPECT_LT(met, 1000);
}

TEST(Image, AForgedImageNeverCrashes) {
  const std::string good = SampleImage();
  for (size_t at = sizeof(format::Header); at + 4 <= good.size(); at += 4) {
    for (const std::uint32_t number : {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
      std::string bad = good;
      std::memcpy(bad.data() + at, &number, sizeof number);
      Seal(bad);
      const Database image(Open(bad));
      for (const char* oid : {"1.7.0", "1.4294967295", "1", "0.0"}) {
        ListOf(LookUp(image, oid).type);
      }
      Compiled({ModuleText("B-MIB", "b OBJECT-TYPE SYNTAX Foo ::= { s 1 }", "s, Foo FROM A-MIB")},
               image);
    }
  }
}

/// Each step changes one thing; the cache is outdated and the next image tells of it.
TEST(ImageCache, NoticesEveryChange) {
  const Workshop workshop;
  const auto text = [](const std::string& name) {
    return ModuleText(name + "-MIB", name + " OBJECT IDENTIFIER ::= { iso 7 }");
  };
  const std::string first = workshop.Write("mibs/b", text("b"));
  const auto write = [&](const std::string& name, const std::string& module) {
    return [&, name, module] { workshop.Write(name, text(module)); };
  };
  struct Step {
    const char* what;
    std::function<void()> change;
    const char* name;
  };
  const Step steps[] = {
      {"a file of the same size", write("mibs/b", "c"), "c"},
      {"the same size and time",
       [&] {
         const auto time = std::filesystem::last_write_time(first);
         workshop.Write("mibs/b", text("d"));
         std::filesystem::last_write_time(first, time);
       },
       "d"},
      {"a file before it", write("mibs/a", "a"), "a"},
      {"a name that stands behind it",
       [&] { std::filesystem::rename(workshop.Path("mibs/a"), workshop.Path("mibs/z")); }, "d"},
      {"a file gone", [&] { std::filesystem::remove(first); }, "a"},
      {"a folder below", write("mibs/m/n/e", "e"), "e"},
      {"a file within it", write("mibs/m/n/e", "f"), "f"},
      {"a link to a folder elsewhere",
       [&] {
         workshop.Write("else/g", text("g"));
         std::filesystem::create_directory_symlink("../else", workshop.Path("mibs/g"));
       },
       "g"},
      {"everything gone", [&] { std::filesystem::remove_all(workshop.Path("mibs")); }, "1.7"},
  };
  const auto base = std::make_shared<Database>();
  ImageCache cache(workshop.Path("x.image"), {{workshop.Path("mibs"), true}}, base);
  EXPECT_EQ(LookUp(*cache.Get({}), "1.7").name, "b");
  for (const Step& step : steps) {
    EXPECT_FALSE(cache.IsOutdated()) << step.what;
    step.change();
    EXPECT_TRUE(cache.IsOutdated()) << step.what;
    EXPECT_EQ(LookUp(*cache.Get({}), "1.7").name, step.name) << step.what;
  }
  EXPECT_EQ(cache.Get({}), base) << "nothing is compiled where there is nothing";
}

/// An image in the file that was made from other folders or another base is not taken.
TEST(ImageCache, BelongsToItsFoldersAndItsBase) {
  const Workshop workshop;
  const std::string file = workshop.Path("x.image");
  workshop.Write("one/m", ModuleText("A-MIB", "a OBJECT IDENTIFIER ::= { top 1 }"));
  workshop.Write("two/m", ModuleText("B-MIB", "b OBJECT IDENTIFIER ::= { top 1 }"));
  const auto base = [](const std::string& number) {
    const std::string top = "top OBJECT IDENTIFIER ::= { iso " + number + " }";
    return std::make_shared<Database>(Compiled({ModuleText("T-MIB", top)}).Result());
  };
  const auto name = [&](const std::string& folder, const std::string& number) {
    ImageCache cache(file, {{workshop.Path(folder), true}}, base(number));
    return LookUp(*cache.Get({}), "1." + number + ".1").name;
  };
  EXPECT_EQ(name("one", "3"), "a");
  EXPECT_EQ(name("two", "3"), "b");
  EXPECT_EQ(name("one", "4"), "a");
  EXPECT_EQ(name("one", "3"), "a");
}

TEST(ImageCache, DoesWithoutAFileItCannotWrite) {
  const Workshop workshop;
  workshop.Write("mibs/a", ModuleText("A-MIB", "a OBJECT IDENTIFIER ::= { iso 7 }"));
  workshop.Write("file", "");
  ImageCache cache(workshop.Path("file/below"), {{workshop.Path("mibs"), true}},
                   std::make_shared<Database>());
  EXPECT_EQ(LookUp(*cache.Get({}), "1.7").name, "a");
}

}  // namespace
}  // namespace sentrel::mib
