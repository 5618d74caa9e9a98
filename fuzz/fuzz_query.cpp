#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "query/completion.h"
#include "query/query.h"

namespace {

using namespace sentrel::query;

struct Empty : Subject {
  std::string_view Sender() const override { return "192.0.2.1"; }
  std::string_view Community() const override { return "p"; }
  const sentrel::TrapEnvelope& Envelope() const override { return envelope; }
  std::string_view NotificationOid() const override { return "1.3"; }
  std::string_view NotificationName() const override { return "linkDown"; }
  std::string_view DeviceType() const override { return ""; }
  std::span<const NamedValue> Bindings() const override { return bindings; }

  sentrel::TrapEnvelope envelope;
  std::vector<NamedValue> bindings = {{"1.3.6", "name.1", "12", "up"},
                                      {"1.3.7", "n", "\xff z", ""}};
};

}  // namespace

/// Whatever the text is: it is understood or its error lies within it, a query and its opposite
/// never both hold, and completions go on from within the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Empty subject;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const auto query = Query::Of(text, Moment{});
  if (const auto* const error = std::get_if<QueryError>(&query)) {
    if (error->at + error->length > size || error->text.empty()) std::abort();
  } else {
    const auto opposite = Query::Of("-(" + text + ")", Moment{});
    const auto* const no = std::get_if<Query>(&opposite);
    const bool holds = std::get<Query>(query).Holds(subject);
    if (no != nullptr && no->Holds(subject) == holds) std::abort();
  }
  if (Complete(text, size / 2, {}).at > size / 2) std::abort();
  return 0;
}
