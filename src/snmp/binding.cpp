#include "snmp/binding.h"

namespace sentrel {
namespace {

using ber::Bytes;

std::optional<Binding> TakeByLength(Bytes& list) {
  Bytes rest = list;
  const auto whole = ber::TakeElement(rest);
  if (!whole || whole->FirstTag() != ber::kSequence) return std::nullopt;
  Bytes behindName = whole->content;
  const auto name = ber::TakeElement(behindName);
  if (!name) return std::nullopt;
  list = rest;
  Bytes behindValue = behindName;
  const auto value = ber::TakeElement(behindValue);
  return Binding{*whole, *name, behindName, behindValue.empty() ? value : std::nullopt};
}

/// The same binding with no more than a name and a value, where the next binding, or nothing,
/// follows behind them.
std::optional<Binding> CutToItsParts(const Binding& binding) {
  Bytes next = binding.behindName;
  const auto value = ber::TakeElement(next);
  if (!value || binding.name.FirstTag() != ber::kOid || value->FirstTag() == ber::kSequence) {
    return std::nullopt;
  }
  if (!next.empty() && next[0] != ber::kSequence) return std::nullopt;
  const auto upToNext = [&](Bytes bytes) { return bytes.first(next.data() - bytes.data()); };
  return Binding{{binding.whole.identifier, upToNext(binding.whole.content)},
                 binding.name,
                 upToNext(binding.behindName),
                 value};
}

}  // namespace

std::optional<Binding> TakeBinding(Bytes& list) {
  Bytes behind = list;
  auto binding = TakeByLength(behind);
  if (!binding) return std::nullopt;
  if (!binding->value) {
    if (auto cut = CutToItsParts(*binding)) {
      binding = cut;
      const Bytes content = cut->whole.content;
      behind = list.subspan(content.data() + content.size() - list.data());
    }
  }
  list = behind;
  return binding;
}

}  // namespace sentrel
