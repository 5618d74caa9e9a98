#include "console/row_record.h"

#include <algorithm>
#include <string_view>

namespace sentrel {
namespace {

void AppendEscaped(std::string& record, std::string_view text) {
  if (text.find_first_of(":\\") == std::string_view::npos) {
    record.append(text);
    return;
  }
  for (size_t i = 0; i < text.size(); ++i) {
    const bool colonAtRisk = text[i] == ':' && (i == 0 || i + 1 == text.size() ||
                                                text[i - 1] == ':' || text[i + 1] == ':');
    if (text[i] == '\\' || colonAtRisk) record.push_back('\\');
    record.push_back(text[i]);
  }
}

}  // namespace

std::string RowRecord(const Trap& trap) {
  std::string record = "SOURCEIP=";
  AppendEscaped(record, trap.SourceAddress);
  record.append("::COMMUNITY=");
  AppendEscaped(record, trap.Community);
  for (size_t i = 0; i < BindingCount(trap); ++i) {
    record.append("::").append(trap.OIDs[i]);
    record.append("=").append(std::to_string(trap.DataTypes[i])).append("=");
    AppendEscaped(record, trap.Values[i]);
  }
  return record;
}

size_t BindingCount(const Trap& trap) {
  return std::min({trap.OIDs.size(), trap.DataTypes.size(), trap.Values.size()});
}

}  // namespace sentrel
