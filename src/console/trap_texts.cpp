#include "console/trap_texts.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "common/failure.h"
#include "common/text.h"
#include "console/row_record.h"
#include "trap/readable_value.h"

namespace sentrel {
namespace {

/// As wide as the stamp of a log entry with the blanks behind it, so that the lines of an entry
/// begin below its address.
constexpr std::string_view kIndent = "                  ";

/// Wider than that: no line of a binding but its first can be taken for a binding, or for an entry.
constexpr std::string_view kFurtherIndent = "                      ";

/// Room for most lines.
constexpr size_t kUsualLine = 64;

std::string EnterpriseText(const std::string& value, bool raw, OidLookup& lookup) {
  std::string text = value;
  if (!raw) Attempt([&] { text = lookup.LookupOIDValue(value); });
  return text;
}

void AppendBinding(const Trap& trap, size_t i, bool raw, OidLookup& lookup, std::string& text) {
  const auto readable = ReadableValue(trap, i);
  const std::string& value = readable ? *readable : trap.Values[i];
  if (raw) {
    text.append(trap.OIDs[i]).append(" = ").append(value);
  } else {
    lookup.LookupOIDDetails(trap.OIDs[i], value, text);
  }
}

/// Whatever a text ends its lines with, the log's lines begin with blanks that no text can take
/// away. The text is the end of the entry, from `start` on.
void IndentFurtherLines(size_t start, std::string& entry) {
  if (IsPrintableAscii(std::string_view(entry).substr(start))) return;
  const std::string text = entry.substr(start);
  const std::vector<std::string_view> lines = SplitLines(text);
  entry.resize(start + lines.front().size());
  for (size_t i = 1; i < lines.size(); ++i) {
    if (!IsBlank(lines[i])) entry.append(kCrLf).append(kFurtherIndent).append(lines[i]);
  }
}

}  // namespace

TrapTexts DescribeTrap(const Trap& trap, bool raw, OidLookup& lookup) {
  TrapTexts texts;
  texts.SummaryText.reserve(kUsualLine * BindingCount(trap));
  for (size_t i = 0; i < BindingCount(trap); ++i) {
    if (trap.OIDs[i] == kEnterpriseOid) {
      texts.DeviceType = EnterpriseText(trap.Values[i], raw, lookup);
      continue;
    }
    if (!texts.SummaryText.empty()) texts.SummaryText.append(kCrLf);
    AppendBinding(trap, i, raw, lookup, texts.SummaryText);
  }
  return texts;
}

std::string DetailText(const Trap& trap, bool raw, OidLookup& lookup) {
  std::string text;
  text.reserve(kUsualLine * (1 + BindingCount(trap)));
  text.append(trap.SourceAddress).append(kCrLf);
  std::string_view separator;
  for (size_t i = 0; i < BindingCount(trap); ++i) {
    const bool enterprise = trap.OIDs[i] == kEnterpriseOid;
    text.append(enterprise && !raw ? kCrLf : separator).append(kIndent);
    const size_t start = text.size();
    if (enterprise) {
      text.append("Enterprise = ").append(EnterpriseText(trap.Values[i], raw, lookup));
    } else {
      AppendBinding(trap, i, raw, lookup, text);
      separator = kCrLf;
    }
    IndentFurtherLines(start, text);
  }
  return text;
}

}  // namespace sentrel
