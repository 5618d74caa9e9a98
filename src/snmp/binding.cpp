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

/// For one whose length covers more than a name and a value.
std::optional<Binding> TakeByParts(Bytes& list) {
  Bytes behind = list;
  const auto whole = ber::TakeElement(behind);
  if (!whole || whole->FirstTag() != ber::kSequence) return std::nullopt;
  Bytes behindName = whole->content;
  const auto name = ber::TakeElement(behindName);
  Bytes next = behindName;
  const auto value = name ? ber::TakeElement(next) : std::nullopt;
  if (!value || name->FirstTag() != ber::kOid || value->FirstTag() == ber::kSequence) {
    return std::nullopt;
  }
  if (!next.empty() && next[0] != ber::kSequence) return std::nullopt;
  const std::size_t size = next.data() - whole->content.data();
  list = list.subspan(next.data() - list.data());
  return Binding{{whole->identifier, whole->content.first(size)},
                 *name,
                 behindName.first(next.data() - behindName.data()),
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
