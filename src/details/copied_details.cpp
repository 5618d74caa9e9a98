#include "details/copied_details.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "common/text.h"
#include "common/visible_text.h"

namespace sentrel {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kIndent = "    ";

void AppendLine(const DetailLine& line, const std::string& value, std::string& text) {
  text += line.name;
  if (!line.oid.empty() && line.oid != line.name) text += " [" + line.oid + "]";
  text += ": ";
  bool isFirst = true;
  for (const std::string_view part : SplitLines(value)) {
    if (!isFirst) text.append("\n").append(kIndent);
    text += part;
    isFirst = false;
  }
  text += '\n';
}

std::string HexOf(std::string_view message, const ByteRange& bytes) {
  const auto octets = ber::BytesOf(message.substr(bytes.begin, bytes.Size()));
  return fmt::format("{:02x}", fmt::join(octets, ""));
}

Json JsonOf(const TrapDetails& details, std::size_t index) {
  const DetailLine& line = details.Line(index);
  Json object = {{"name", line.name}};
  if (!line.oid.empty()) object["oid"] = line.oid;
  if (!line.type.empty()) object["type"] = line.type;
  object["value"] = details.WholeValue(index);
  for (const DetailLine& part : line.parts) {
    object["index"].push_back({{"name", part.name}, {"oid", part.oid}, {"value", part.value}});
  }
  if (line.bytes.Size() > 0) object["bytes"] = HexOf(details.Message(), line.bytes);
  return object;
}

}  // namespace

std::string DetailsAsText(const TrapDetails& details) {
  std::string text;
  for (std::size_t i = 0; i < details.Lines(); ++i) {
    AppendLine(details.Line(i), details.WholeValue(i), text);
    for (const DetailLine& part : details.Line(i).parts) {
      text += kIndent;
      AppendLine(part, part.value, text);
    }
  }
  return text;
}

std::string DetailsAsJson(const TrapDetails& details) {
  Json document = {{"message", Json::array()}, {"bindings", Json::array()}};
  for (std::size_t i = 0; i < details.Lines(); ++i) {
    const char* const list = i < details.FirstBinding() ? "message" : "bindings";
    document[list].push_back(JsonOf(details, i));
  }
  return VisibleJson(document.dump(2)) + "\n";
}

}  // namespace sentrel
