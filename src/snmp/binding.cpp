#include "snmp/binding.h"

namespace sentrel {

std::optional<ber::Element> Binding::Value() const {
  ber::Bytes rest = behindName;
  const auto value = ber::TakeElement(rest);
  return rest.empty() ? value : std::nullopt;
}

std::optional<Binding> TakeBinding(ber::Bytes& list) {
  ber::Bytes rest = list;
  const auto whole = ber::TakeElement(rest);
  if (!whole || whole->FirstTag() != ber::kSequence) return std::nullopt;
  ber::Bytes behindName = whole->content;
  const auto name = ber::TakeElement(behindName);
  if (!name) return std::nullopt;
  list = rest;
  return Binding{*whole, *name, behindName};
}

}  // namespace sentrel
