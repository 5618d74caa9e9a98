#include "mib/base_types.h"

namespace sentrel::mib {

std::uint32_t BaseTypes::Take(const Target& target) {
  const Image& image = *base_.Images()[target.module];
  const std::uint32_t type = image.EntryAt(target.definition).type;
  if (type == kNothing) return kNothing;
  const auto [known, isNew] = taken_.emplace(std::uint64_t{target.module} << 32 | type, kNothing);
  if (isNew) known->second = types_.Add(Read(image, image.Type(type)));
  return known->second;
}

ResolvedType BaseTypes::Read(const Image& image, const format::TypeRecord& record) {
  ResolvedType type;
  type.base = static_cast<BaseType>(record.base);
  type.hint = image.Text(record.hint);
  type.units = image.Text(record.units);
  const auto records = image.Values(record);
  if (records.empty()) return type;
  auto& values = values_.emplace_back();
  values.reserve(records.size());
  for (const format::ValueRecord& value : records) {
    values.push_back({value.value, image.Text(value.label)});
  }
  type.values = values.data();
  type.valueCount = static_cast<std::uint32_t>(values.size());
  return type;
}

}  // namespace sentrel::mib
