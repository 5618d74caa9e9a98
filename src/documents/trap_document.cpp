#include "documents/trap_document.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "common/atomic_file.h"
#include "common/failure.h"
#include "common/visible_text.h"

namespace sentrel {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormatVersion = 1;
constexpr int kIndent = 2;
/// The community of a trap is a password to many devices.
constexpr mode_t kOwnerAlone = 0600;

Json Bindings(const SavedTrap& trap) {
  Json bindings = Json::array();
  const std::size_t count = std::min({trap.OIDs.size(), trap.DataTypes.size(), trap.Values.size()});
  for (std::size_t i = 0; i < count; ++i) {
    bindings.push_back(
        {{"oid", trap.OIDs[i]}, {"type", trap.DataTypes[i]}, {"value", trap.Values[i]}});
  }
  return bindings;
}

}  // namespace

std::string TrapDocument(const SavedTrap& trap) {
  const Json document = {{"format", "Sentrel trap"},
                         {"version", kFormatVersion},
                         {"station", {{"host", trap.StationText1}, {"system", trap.StationText2}}},
                         {"source", trap.SourceIP},
                         {"community", trap.TrapCommunity},
                         {"bindings", Bindings(trap)}};
  try {
    return VisibleJson(document.dump(kIndent)) + "\n";
  } catch (const nlohmann::json::exception&) {
    throw Failure("The trap cannot be saved: it holds a text that is not UTF-8.");
  }
}

void TrapDocumentWriter::Write(const std::string& fileName, const SavedTrap& trap) {
  WriteFile(fileName, TrapDocument(trap), kOwnerAlone);
}

}  // namespace sentrel
