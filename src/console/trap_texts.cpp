#include "console/trap_texts.h"

#include <string_view>

#include "common/failure.h"
#include "common/text.h"
#include "console/row_record.h"

namespace sentrel {
namespace {

/// As wide as the stamp of a log entry with the blanks behind it: lines of the log stand beneath
/// the address.
constexpr std::string_view kIndent = "                  ";

/// Room for most lines.
constexpr size_t kUsualLine = 64;

std::string EnterpriseText(const std::string& value, bool raw, OidLookup& lookup) {
  std::string text = value;
  if (!raw) Attempt([&] { text = lookup.LookupOIDValue(value); });
  return text;
}

std::string BindingText(const std::string& oid, const std::string& value, bool raw,
                        OidLookup& lookup) {
  return raw ? oid + " = " + value : lookup.LookupOIDDetails(oid, value);
}

}  // namespace

TrapTexts DescribeTrap(const Trap& trap, bool raw, OidLookup& lookup) {
  const size_t usual = kUsualLine * (1 + BindingCount(trap));
  TrapTexts texts;
  texts.SummaryText.reserve(usual);
  texts.DetailText.reserve(usual);
  texts.DetailText.append(trap.SourceAddress).append(kCrLf);
  std::string_view separator;
  for (size_t i = 0; i < BindingCount(trap); ++i) {
    if (trap.OIDs[i] == kEnterpriseOid) {
      texts.DeviceType = EnterpriseText(trap.Values[i], raw, lookup);
      texts.DetailText.append(raw ? separator : kCrLf).append(kIndent);
      texts.DetailText.append("Enterprise = ").append(texts.DeviceType);
      continue;
    }
    const std::string line = BindingText(trap.OIDs[i], trap.Values[i], raw, lookup);
    texts.SummaryText.append(separator).append(line);
    texts.DetailText.append(separator).append(kIndent).append(line);
    separator = kCrLf;
  }
  return texts;
}

}  // namespace sentrel
