#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "mib/image.h"

namespace sentrel::mib {

/// Images one upon the other: that of the built-in modules and, over it, that of the user's. They
/// answer as one would that holds all of their modules: whoever made the upper image has seen to it
/// that it only gives names which win over those below. Immutable, and so safe to use from any
/// thread.
class Database {
 public:
  /// A database that knows nothing.
  Database() = default;
  /// One image alone.
  explicit Database(std::shared_ptr<const Image> image) : images_{std::move(image)} {}
  /// An image that was compiled over `below`.
  Database(const Database& below, std::shared_ptr<const Image> image);

  /// The lowest one first.
  const std::vector<std::shared_ptr<const Image>>& Images() const { return images_; }

  /// The deepest node with a name on the way to an OID, that of the upper image where two are as
  /// deep.
  struct Match {
    const Image* image = nullptr;
    std::uint32_t node = 0;
    /// How many numbers of the OID the node stands for; 0 means that nothing is known.
    size_t depth = 0;
  };
  /// Damage in an image costs no name that one above it gives: it throws Failure only where they
  /// have none.
  Match Find(std::span<const std::uint32_t> oid) const;

  /// Looks for damage in all that has not been read yet.
  bool IsSound() const;
  /// Gives back the memory of the parts that have been read, where they can be fetched again.
  void LeaveMemory() const;
  /// Another one for other images.
  std::uint64_t Checksum() const;

 private:
  std::vector<std::shared_ptr<const Image>> images_;
};

}  // namespace sentrel::mib
