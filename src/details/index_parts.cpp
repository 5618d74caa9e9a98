#include "details/index_parts.h"

#include <algorithm>
#include <array>
#include <bitset>

namespace sentrel {
namespace {

using Numbers = std::span<const std::uint32_t>;

/// More objects or numbers than these are no index (RFC 2578, sections 3.5 and 7.7).
constexpr std::size_t kMostObjects = 32;
constexpr std::size_t kMostNumbers = 128;

constexpr std::uint32_t kHighestOctet = 255;
constexpr std::size_t kMacLength = 6;

bool AreOctets(Numbers numbers) {
  return std::ranges::all_of(numbers, [](std::uint32_t n) { return n <= kHighestOctet; });
}

/// Fits objects to numbers, the first way that leaves nothing over.
class Fitting {
 public:
  Fitting(std::span<const NodeFacts> objects, Numbers numbers)
      : objects_(objects), numbers_(numbers), parts_(objects.size()) {}

  bool Fit(std::size_t object, std::size_t at) {
    if (object == objects_.size()) return at == numbers_.size();
    if (failed_[object][at]) return false;
    if (FitObject(object, at)) return true;
    failed_[object][at] = true;
    return false;
  }

  std::vector<IndexPart> TakeParts() { return std::move(parts_); }

 private:
  bool FitObject(std::size_t object, std::size_t at) {
    switch (objects_[object].base) {
      case ValueBase::kOctets:
      case ValueBase::kOpaque:
      case ValueBase::kBits:
        return FitOctets(object, at);
      case ValueBase::kOid:
        return FitLengthFirst(object, at, false) || FitRest(object, at);
      case ValueBase::kIpAddress:
        return FitPart(object, at, 4, true);
      default:
        return FitPart(object, at, 1, false);
    }
  }

  bool FitOctets(std::size_t object, std::size_t at) {
    const bool mayBeMac = objects_[object].hint == "1x:";
    const bool isMacAtEnd = mayBeMac && numbers_.size() - at == kMacLength;
    if (isMacAtEnd && FitPart(object, at, kMacLength, true)) return true;
    if (FitLengthFirst(object, at, true)) return true;
    if (mayBeMac && FitPart(object, at, kMacLength, true)) return true;
    return AreOctets(numbers_.subspan(at)) && FitRest(object, at);
  }

  bool FitLengthFirst(std::size_t object, std::size_t at, bool octets) {
    if (at == numbers_.size()) return false;
    const std::size_t length = numbers_[at];
    return FitPart(object, at + 1, length, octets);
  }

  /// Without a length, as the last object may be.
  bool FitRest(std::size_t object, std::size_t at) {
    return object + 1 == objects_.size() && FitPart(object, at, numbers_.size() - at, false);
  }

  bool FitPart(std::size_t object, std::size_t at, std::size_t length, bool octets) {
    if (length > numbers_.size() - at) return false;
    const Numbers part = numbers_.subspan(at, length);
    if (octets && !AreOctets(part)) return false;
    parts_[object] = {&objects_[object], part};
    return Fit(object + 1, at + length);
  }

  const std::span<const NodeFacts> objects_;
  const Numbers numbers_;
  std::vector<IndexPart> parts_;
  std::array<std::bitset<kMostNumbers + 1>, kMostObjects> failed_;
};

}  // namespace

std::vector<IndexPart> IndexParts(std::span<const NodeFacts> indexes, Numbers numbers) {
  const bool isIndex = !indexes.empty() && indexes.size() <= kMostObjects && !numbers.empty() &&
                       numbers.size() <= kMostNumbers;
  if (!isIndex) return {};
  Fitting fitting(indexes, numbers);
  return fitting.Fit(0, 0) ? fitting.TakeParts() : std::vector<IndexPart>();
}

}  // namespace sentrel
