#include <gtest/gtest.h>

#include "mib/lookup.h"
#include "mib/module_folders.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

class BuiltIn : public testing::Test {
 protected:
  std::string Name(const std::string& oid) const { return LookUp(database_, oid).name; }
  std::string Label(const std::string& oid, int number) const {
    return LabelOf(LookUp(database_, oid).type, number);
  }

  const Database database_ = BuiltInDatabase();
};

TEST_F(BuiltIn, KnowsTheStandards) {
  const std::pair<const char*, const char*> names[] = {
      {"1.3.6.1.2.1.1.3.0", "sysUpTime.0"},
      {"1.3.6.1.6.3.1.1.4.1.0", "snmpTrapOID.0"},
      {"1.3.6.1.6.3.1.1.5.1", "coldStart"},
      {"1.3.6.1.6.3.1.1.5.3", "linkDown"},
      {"1.3.6.1.2.1.2.2.1.1.7", "ifIndex.7"},
      {"1.3.6.1.2.1.47.2.0.1", "entConfigChange"},
      {"1.3.6.1.2.1.15.7.2", "bgpBackwardTransition"},
      {"1.3.6.1.2.1.15.0.1", "bgpEstablishedNotification"},
      {"1.3.6.1.4.1.8072.4.0.2", "nsNotifyShutdown"},
      {"1.3.6.1.4.1.9.1.1", "ciscoGatewayServer"},
      {"1.3.6.1.4.1.99999.1", "enterprises.99999.1"},
      {"1.0.8802.1.1.2.0.0.1", "lldpRemTablesChange"},
      {"0.0", "zeroDotZero"},
      {".5.6.7", "5.6.7"},
      {"1.3.6.1.6.3.1.1.5.6", "egpNeighborLoss"},
      {"1.3.6.1.4.1.58213", "sentrel"},
      {"1.3.6.1.4.1.58213.10", "sentrelTestTrap"},
      {"1.3.6.1.4.1.58213.0.10", "sentrelTestTrap"},
      {"1.3.6.1.4.1.58213.10.1", "sentrelTestText"},
      // With the zero of version 1, and without it.
      {"1.3.6.1.2.1.33.2.0.1", "upsTrapOnBattery"},
      {"1.3.6.1.2.1.14.16.2.0.3", "ospfVirtNbrStateChange"},
      {"1.3.6.1.2.1.15.7.0.2", "bgpBackwardTransition"},
      {"1.3.6.1.2.1.15.1", "bgpVersion"},
      {"1.3.6.1.4.1.8072.4.2", "nsNotifyShutdown"},
      {"1.3.6.1.2.1.47.2.1", "entConfigChange"},
      {"1.3.6.1.2.1.33.2.0.9", "upsTraps.0.9"},
      {"1.3.6.1.2.1.33.2.0.1.0", "upsTraps.0.1.0"},
      {"1.3.6.1.2.1.1.0.3", "system.0.3"},
      // Numbers of versions and the like.
      {"1.3.7", "1.3.7"},
      {".1.3.0.1", "1.3.0.1"},
      {"1.3.6.2.14", "1.3.6.2.14"},
      {"1.9", "1.9"},
      {"1.3.6", "dod"},
      {"1.3.6.1.9", "internet.9"},
      {"1.3.111.9", "ieee.9"},
  };
  for (const auto& [oid, name] : names) EXPECT_EQ(Name(oid), name) << oid;
}

TEST_F(BuiltIn, KnowsTheirNamedValues) {
  EXPECT_EQ(Label("1.3.6.1.2.1.2.2.1.8.7", 2), "down(2)");
  EXPECT_EQ(Label("1.3.6.1.2.1.2.2.1.3.7", 6), "ethernetCsmacd(6)");
  EXPECT_EQ(Label("1.3.6.1.2.1.15.3.1.2.10.0.0.1", 6), "established(6)");
  EXPECT_EQ(Label("1.3.6.1.2.1.1.3.0", 1), "unknown(0)");
}

TEST_F(BuiltIn, NoModuleTakesThePlaceOfTheTestTrap) {
  const std::string claims =
      "maker MODULE-IDENTITY LAST-UPDATED \"203001010000Z\" ::= { enterprises 58213 }\n"
      "alarm NOTIFICATION-TYPE ::= { maker 10 }\n"
      "other NOTIFICATION-TYPE ::= { maker 11 }";
  const std::string imports = "MODULE-IDENTITY, NOTIFICATION-TYPE, enterprises FROM SNMPv2-SMI";
  for (const char* name : {"MAKER-MIB", "SENTREL-MIB"}) {
    const Compiled vendor({ModuleText(name, claims, imports)}, database_);
    EXPECT_EQ(vendor.Name("1.3.6.1.4.1.58213"), "sentrel") << name;
    EXPECT_EQ(vendor.Name("1.3.6.1.4.1.58213.10"), "sentrelTestTrap") << name;
    EXPECT_EQ(vendor.Name("1.3.6.1.4.1.58213.11"), "other") << name;
  }
}

TEST_F(BuiltIn, ResolvesWhatAMakerImports) {
  const Compiled vendor(
      {ModuleText("ACME-MIB",
                  "acme MODULE-IDENTITY LAST-UPDATED \"202001010000Z\" ::= { enterprises 99999 }\n"
                  "acmeState OBJECT-TYPE SYNTAX TruthValue ::= { acme 1 }\n"
                  "acmeAlarm TRAP-TYPE ENTERPRISE acme ::= 7",
                  "MODULE-IDENTITY, OBJECT-TYPE, enterprises FROM SNMPv2-SMI\n"
                  "TRAP-TYPE FROM RFC-1215 TruthValue FROM SNMPv2-TC")},
      database_);
  EXPECT_EQ(vendor.Name("1.3.6.1.4.1.99999.0.7"), "acmeAlarm");
  EXPECT_EQ(vendor.Labels("1.3.6.1.4.1.99999.1.0"), "true(1),false(2)");
  EXPECT_EQ(vendor.Name("1.3.6.1.2.1.1.3.0"), "sysUpTime.0");
  EXPECT_TRUE(vendor.Messages().empty());
}

TEST(Folders, TheProgramsOwnComeFirst) {
  const auto folders = StandardFolders("/opt/sentrel", "/home/u/.local/share/sentrel", "/home/u");
  ASSERT_GE(folders.size(), 4);
  EXPECT_EQ(folders[0].path, "/opt/sentrel/mibs");
  EXPECT_TRUE(folders[0].recursive);
  EXPECT_EQ(folders[1].path, "/home/u/.local/share/sentrel/mibs");
  EXPECT_EQ(folders[2].path, "/home/u/.snmp/mibs");
  EXPECT_FALSE(folders[2].recursive);
}

}  // namespace
}  // namespace sentrel::mib
