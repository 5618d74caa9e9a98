#include "mib/library.h"

#include <gmock/gmock.h>

#include <semaphore>

#include "mib/module_folders.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

using namespace std::chrono_literals;

/// A library over the built-in modules and one folder, and the count of its images.
class LibraryTest : public testing::Test {
 protected:
  LibrarySetup Setup() const {
    return {ProgramFolder() + "/" + kBuiltInImageName,
            {{workshop_.Path("mibs"), true}},
            workshop_.Path("cache/user.image"),
            5ms};
  }

  std::function<void()> Counter() {
    return [this] { images_.release(); };
  }

  /// Waits for images and adopts them, until the OID has the name.
  bool ComesToBe(Library& library, const std::string& oid, const std::string& name) {
    do {
      library.Adopt();
      if (Name(library, oid) == name) return true;
    } while (images_.try_acquire_for(30s));
    return false;
  }

  static std::string Name(Library& library, const std::string& oid) {
    const auto object = library.MakeOIDObject();
    object->SetOID(oid);
    return object->Name();
  }

  void WriteVendor(const std::string& name) const {
    workshop_.Write("mibs/vendor/acme",
                    ModuleText("ACME-MIB", name + " OBJECT IDENTIFIER ::= { enterprises 99999 }",
                               "enterprises FROM SNMPv2-SMI"));
  }

  static constexpr const char* kVendor = "1.3.6.1.4.1.99999.1";
  Workshop workshop_;

 private:
  std::counting_semaphore<> images_{0};
};

TEST_F(LibraryTest, AnswersFromTheBuiltInModulesAtOnce) {
  Library library(Setup(), Counter());
  const auto object = library.MakeOIDObject();
  object->SetOID("1.3.6.1.2.1.2.2.1.8.7");
  EXPECT_EQ(object->Name(), "ifOperStatus.7");
  EXPECT_EQ(object->EnumerationList(),
            "up(1),down(2),testing(3),unknown(4),dormant(5),notPresent(6),lowerLayerDown(7)");
  EXPECT_EQ(object->EnumerationName(2), "down(2)");
  EXPECT_EQ(object->EnumerationName(99), "unknown(0)");
  for (const std::string text : {"1.3.no oid", "", "5.6.7"}) {
    const auto other = library.MakeOIDObject();
    other->SetOID(text);
    EXPECT_EQ(other->Name(), text);
    EXPECT_EQ(other->EnumerationList(), "");
    EXPECT_EQ(other->EnumerationName(0), "unknown(0)");
  }
}

TEST_F(LibraryTest, FollowsTheFolderWhileItRuns) {
  Library library(Setup(), Counter());
  EXPECT_EQ(Name(library, kVendor), "enterprises.99999.1");
  WriteVendor("acme");
  EXPECT_TRUE(ComesToBe(library, kVendor, "acme.1"));
  const auto kept = library.MakeOIDObject();
  kept->SetOID(kVendor);
  WriteVendor("better");
  EXPECT_TRUE(ComesToBe(library, kVendor, "better.1"));
  EXPECT_EQ(kept->Name(), "acme.1");
  std::filesystem::remove_all(workshop_.Path("mibs"));
  EXPECT_TRUE(ComesToBe(library, kVendor, "enterprises.99999.1"));
}

TEST_F(LibraryTest, TheNextStartUsesTheImageThatWasKept) {
  WriteVendor("acme");
  {
    Library library(Setup(), Counter());
    ASSERT_TRUE(ComesToBe(library, kVendor, "acme.1"));
  }
  const auto written = std::filesystem::last_write_time(workshop_.Path("cache/user.image"));
  Library library(Setup(), Counter());
  EXPECT_TRUE(ComesToBe(library, kVendor, "acme.1"));
  EXPECT_EQ(std::filesystem::last_write_time(workshop_.Path("cache/user.image")), written);
}

TEST_F(LibraryTest, WorksWithoutBuiltInModules) {
  LibrarySetup setup = Setup();
  setup.builtInImage = workshop_.Write("damaged", "no image");
  workshop_.Write("mibs/a", ModuleText("A-MIB", "a OBJECT IDENTIFIER ::= { iso 7 }"));
  Library library(setup, Counter());
  EXPECT_EQ(Name(library, "1.3.6"), "1.3.6");
  EXPECT_TRUE(ComesToBe(library, "1.7", "a"));
}

TEST_F(LibraryTest, EndsInTheMiddleOfItsWork) {
  for (int i = 0; i < 200; ++i) {
    workshop_.Write("mibs/" + std::to_string(i),
                    ModuleText("M" + std::to_string(i), "x ::= INTEGER"));
  }
  for (int i = 0; i < 20; ++i) Library library(Setup(), [] {});
}

}  // namespace
}  // namespace sentrel::mib
