#include "snmp/binding.h"

namespace sentrel {
namespace {

using ber::Bytes;
using ber::Element;

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

std::optional<Binding> TakeByParts(Bytes& list) {
  Bytes rest = list;
  const auto whole = ber::TakeElement(rest);
  if (!whole || whole->FirstTag() != ber::kSequence) return std::nullopt;
  const Bytes content = list.subspan(whole->content.data() - list.data());
  Bytes behindName = content;
  const auto name = ber::TakeElement(behindName);
  Bytes next = behindName;
  const auto value = name ? ber::TakeElement(next) : std::nullopt;
  const bool even = value && (next.empty() || next[0] == ber::kSequence);
  if (!even || name->FirstTag() != ber::kOid || value->FirstTag() == ber::kSequence) {
    return std::nullopt;
  }
  list = next;
  return Binding{{whole->identifier, content.first(content.size() - next.size())},
                 *name,
                 behindName.first(behindName.size() - next.size()),
                 value};
}

}  // namespace

std::optional<Binding> TakeBinding(Bytes& list) {
  Bytes rest = list;
  auto binding = TakeByLength(rest);
  if (!binding || !binding->value) {
    if (auto byParts = TakeByParts(list)) return byParts;
  }
  if (binding) list = rest;
  return binding;
}

}  // namespace sentrel
