#pragma once

#include <gmock/gmock.h>

#include "console/trap_gate.h"
#include "console/trap_texts.h"
#include "fakes/fake_console.h"
#include "fakes/fake_mib_library.h"
#include "fakes/fake_registry.h"

namespace sentrel {

inline constexpr const char* kEnterprise = kEnterpriseOid;

/// A trap from 192.0.2.7 whose bindings are all OCTET STRINGs.
inline Trap TrapOf(const std::vector<std::pair<std::string, std::string>>& bindings) {
  Trap trap{"192.0.2.7", "public", {}, {}, {}};
  for (const auto& [oid, value] : bindings) {
    trap.OIDs.push_back(oid);
    trap.DataTypes.push_back(4);
    trap.Values.push_back(value);
  }
  return trap;
}

/// The road from the gate to the row, on fake services.
struct ConsoleTest : testing::Test {
  ConsoleTest() {
    table.SetCols(5);
    table.SetWholeRows(true);
  }

  CallLog calls;
  FakeMainWindow window{calls};
  FakeClock clock;
  FakeLocale locale;
  FakeTimer timer;
  FakeRegistry registry;
  FakeLogFile logFile;
  FakeMibLibrary mibs;
  Settings settings{registry};
  Decoder decoder{mibs, settings};
  OidLookup lookup{decoder};
  TrapLog log{settings, clock, locale, logFile};
  Table table;
  TrapRows builder{settings, table, window, clock, locale, lookup, log};
  TrapGate gate{settings, builder, decoder, timer};
};

}  // namespace sentrel
