#include "console/trap_texts.h"

#include <string_view>

#include "common/text.h"
#include "console/row_record.h"

namespace sentrel {
namespace {

/// As wide as the stamp of a log entry with the blanks behind it: lines of the log stand beneath
/// the address.
constexpr std::string_view kIndent = "                  ";

}  // namespace

TrapTexts DescribeTrap(const Trap& trap, const Settings&) {
  TrapTexts texts;
  texts.DetailText.append(trap.SourceAddress).append(kCrLf);
  std::string_view separator;
  for (size_t i = 0; i < BindingCount(trap); ++i) {
    const std::string& oid = trap.OIDs[i];
    const std::string& value = trap.Values[i];
    texts.DetailText.append(separator).append(kIndent);
    if (oid == kEnterpriseOid) {
      texts.DeviceType = value;
      texts.DetailText.append("Enterprise = ").append(value);
      continue;
    }
    const std::string line = oid + " = " + value;
    texts.SummaryText.append(separator).append(line);
    texts.DetailText.append(line);
    separator = kCrLf;
  }
  return texts;
}

}  // namespace sentrel
