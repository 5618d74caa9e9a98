#include "sending/test_trap.h"

#include "common/dates.h"

namespace sentrel {
namespace {

constexpr int kOctetString = 4;
constexpr int kObjectIdentifier = 6;
constexpr int kTimeTicks = 67;

constexpr char kSysUpTime[] = "1.3.6.1.2.1.1.3.0";
constexpr char kSnmpTrapOid[] = "1.3.6.1.6.3.1.1.4.1.0";
constexpr char kSnmpTrapEnterprise[] = "1.3.6.1.6.3.1.1.4.3.0";

}  // namespace

void TestTrap::SendTestTrap() {
  TrapObject trap;
  trap.SetStationText1(snmp_.LocalText1());
  trap.SetStationText2(snmp_.LocalText2());
  trap.SetTrapCommunity("public");
  trap.VarBinds().AddVarBind(kSysUpTime, kTimeTicks, "0");
  trap.VarBinds().AddVarBind(kSnmpTrapOid, kObjectIdentifier, "1.3.6.1.4.1.58213.10");
  trap.VarBinds().AddVarBind(kSnmpTrapEnterprise, kObjectIdentifier, "1.3.6.1.4.1.58213");
  trap.VarBinds().AddVarBind("1.3.6.1.4.1.58213.10.1", kOctetString,
                             "Test trap at " + FormatTime(clock_.Now(), locale_.Texts()));
  sendTrap_(trap);
}

}  // namespace sentrel
