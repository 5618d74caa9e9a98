#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <semaphore>

#include "mib/enterprise.h"
#include "mib/library.h"
#include "mib/module_folders.h"
#include "mib/sources.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

using testing::HasSubstr;

constexpr const char* kImports = "enterprises FROM SNMPv2-SMI NOTIFICATION-TYPE FROM SNMPv2-SMI";

TEST(Makers, AnEnterpriseIsNamedAfterItsOrganisation) {
  const std::pair<const char*, const char*> names[] = {
      {"ciscoSystems", "ciscoSystems"},
      {"Cisco Systems, Inc.", "ciscoSystems"},
      {"IBM (https://w3.ibm.com/standards )", "ibm"},
      {"3Com", "n3Com"},
      {"Beijing Xintong Huaan Technologies Co. Ltd", "beijingXintongHuaanTechnologies"},
      {"Telecom Italia S.p.A.", "telecomItalia"},
      {"U of Tennessee", "uOfTennessee"},
      {"Ltd", "ltd"},
      {"2001", ""},
      {"\xE4\xB8\xAD\xE5\x9B\xBD", ""},
      {"", ""},
  };
  for (const auto& [organisation, name] : names) EXPECT_EQ(EnterpriseName(organisation), name);
}

TEST(Makers, TheOwnerOfAnEnterpriseNamesWhatIsBelowIt) {
  const std::string own = "own OBJECT IDENTIFIER ::= { enterprises 7777 }\n";
  const std::string owner =
      ModuleText("OWNER-MIB", own + "mine OBJECT IDENTIFIER ::= { own 1 }\n", kImports);
  const std::string guest =
      ModuleText("GUEST-MIB",
                 "guest MODULE-IDENTITY LAST-UPDATED \"203001010000Z\" ::= { enterprises 8888 }\n"
                 "a OBJECT IDENTIFIER ::= { guest 1 }\nb OBJECT IDENTIFIER ::= { guest 2 }\n"
                 "theirs NOTIFICATION-TYPE ::= { enterprises 7777 1 }\n",
                 kImports);
  for (const auto& texts : {std::vector{owner, guest}, std::vector{guest, owner}}) {
    EXPECT_EQ(Compiled(texts).Name("1.3.6.1.4.1.7777.1"), "mine");
  }
  // Without the owner the other one is better than none.
  EXPECT_EQ(Compiled({guest}).Name("1.3.6.1.4.1.7777.1"), "theirs");
}

class BuiltInFile : public testing::Test {
 protected:
  std::string Name(const std::string& oid) {
    const auto object = library_->MakeOIDObject();
    object->SetOID(oid);
    return object->Name();
  }
  /// A library over this built-in image, with a module of the user's.
  void Open(const std::string& image) {
    workshop_.Write("mibs/acme",
                    ModuleText("ACME-MIB", "acme OBJECT IDENTIFIER ::= { enterprises 99999 }\n",
                               "enterprises FROM SNMPv2-SMI"));
    library_ = std::make_unique<Library>(
        LibrarySetup{image, {{workshop_.Path("mibs"), true}}, workshop_.Path("cache/user.image")},
        [this] { isNew_.release(); });
  }
  std::string CopyOfImage() const {
    const std::string copy = workshop_.Path("built-in.image");
    std::filesystem::copy_file(ProgramFolder() + "/" + kBuiltInImageName, copy);
    return copy;
  }

  const Workshop workshop_;
  std::binary_semaphore isNew_{0};
  std::unique_ptr<Library> library_;
};

TEST_F(BuiltInFile, DamageCostsTheNamesThatItHits) {
  const std::string image = CopyOfImage();
  {
    // The names of the module that comes last lie near the end.
    std::fstream file(image, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(std::filesystem::file_size(image)) - 200'000);
    file << std::string(50'000, 'x');
  }
  Open(image);
  EXPECT_EQ(Name("1.3.6.1.2.1.1.3.0"), "sysUpTime.0");
  EXPECT_EQ(Name("1.3.6.1.4.1.318.0.5"), "upsOnBattery");
  isNew_.acquire();
  library_->Adopt();
  EXPECT_EQ(Name("1.3.6.1.4.1.99999.1"), "acme.1");
}

TEST_F(BuiltInFile, WithoutItTheUsersNamesRemain) {
  Open(workshop_.Path("missing"));
  EXPECT_EQ(Name("1.3.6.1.2.1.1.3.0"), "1.3.6.1.2.1.1.3.0");
  isNew_.acquire();
  library_->Adopt();
  EXPECT_EQ(Name("1.3.6.1.4.1.99999.1"), "acme.1");
}

TEST(UsersFolder, OfAnySizeAndShapeIsBoundedAndTold) {
  const Workshop workshop;
  const std::string huge = workshop.Write("mibs/huge", "");
  ASSERT_EQ(truncate(huge.c_str(), 1'000'000'000), 0);
  std::filesystem::create_directory_symlink("..", workshop.Path("mibs/circle"));
  int deep = open(workshop.Path("mibs").c_str(), O_RDONLY | O_DIRECTORY);
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(mkdirat(deep, "d", 0700), 0);
    const int below = openat(deep, "d", O_RDONLY | O_DIRECTORY);
    close(deep);
    deep = below;
  }
  close(deep);
  const std::string good = workshop.Write("mibs/good", ModuleText("A-MIB", "T ::= INTEGER"));
  const Sources sources = FindSources({{workshop.Path("mibs"), true}});
  ASSERT_EQ(sources.messages.size(), 1);
  EXPECT_THAT(sources.messages[0].text, HasSubstr("too deep"));
  const Collection collection(sources.files, {});
  EXPECT_EQ(collection.ModuleCount(), 1);
  ASSERT_EQ(collection.AllMessages().size(), 1);
  EXPECT_THAT(collection.AllMessages()[0].text, HasSubstr("too large"));
  // Longer than any path: not every library takes it away with the folder.
  EXPECT_EQ(std::system(("rm -rf " + workshop.Path("mibs")).c_str()), 0);
}

TEST(UsersFolder, OfTooManyFilesIsReadInPart) {
  const Workshop workshop;
  const std::string file = workshop.Write("mibs/0", "");
  for (int i = 1; i < 50'010; ++i) {
    ASSERT_EQ(link(file.c_str(), workshop.Path("mibs/" + std::to_string(i)).c_str()), 0);
  }
  const Sources sources = FindSources({{workshop.Path("mibs"), true}});
  EXPECT_EQ(sources.files.size(), 50'000);
  ASSERT_EQ(sources.messages.size(), 1);
  EXPECT_THAT(sources.messages[0].text, HasSubstr("too many files"));
}

}  // namespace
}  // namespace sentrel::mib
