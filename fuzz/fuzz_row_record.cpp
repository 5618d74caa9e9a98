// Any text as a row record: it is refused, or what was read is written and read back the same.

#include "console/row_record.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "common/failure.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sentrel::Trap trap;
  try {
    trap = sentrel::ReadRowRecord({reinterpret_cast<const char*>(data), size});
  } catch (const sentrel::Failure&) {
    return 0;
  }
  // An OID is not escaped: the writer is only ever given numbers and dots.
  for (const std::string& oid : trap.OIDs) {
    if (oid.find_first_not_of("0123456789.") != std::string::npos) return 0;
  }
  const sentrel::Trap again = sentrel::ReadRowRecord(sentrel::RowRecord(trap));
  const bool same = again.SourceAddress == trap.SourceAddress &&
                    again.Community == trap.Community && again.OIDs == trap.OIDs &&
                    again.DataTypes == trap.DataTypes && again.Values == trap.Values;
  if (!same) std::abort();
  return 0;
}
