#include "mib/database.h"

#include <algorithm>

#include "common/failure.h"

namespace sentrel::mib {

Database::Database(const Database& below, std::shared_ptr<const Image> image)
    : images_(below.images_) {
  images_.push_back(std::move(image));
}

Database::Match Database::Find(std::span<const std::uint32_t> oid) const {
  Match best;
  for (std::size_t above = images_.size(); above > 0; --above) {
    const Image& image = *images_[above - 1];
    try {
      const Image::Match match = image.Find(oid);
      if (match.depth > best.depth) best = {&image, match.node, match.depth};
    } catch (const Failure&) {
      if (best.depth == 0) throw;
    }
  }
  return best;
}

bool Database::IsSound() const {
  return std::all_of(images_.begin(), images_.end(),
                     [](const auto& image) { return image->IsSound(); });
}

void Database::LeaveMemory() const {
  for (const auto& image : images_) image->LeaveMemory();
}

std::uint64_t Database::Checksum() const {
  std::uint64_t sum = 0;
  for (const auto& image : images_) sum = sum * 31 + image->Checksum();
  return sum;
}

}  // namespace sentrel::mib
