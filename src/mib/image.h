#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "mib/block_guard.h"
#include "mib/catalog.h"
#include "mib/image_format.h"
#include "mib/mapped_file.h"

namespace sentrel::mib {

/// When an image is searched for damage: as a whole when it is opened, or what is read of it when
/// it is read. Then every other function of it throws Failure where it meets damage.
enum class DamageCheck { AtOnce, WhenRead };

/// A compiled database, searched in place. Immutable, and so safe to use from any thread. Every
/// index in it is checked when it is followed: a forged image gives wrong answers, never a crash.
class Image {
 public:
  /// Maps a file; the memory that a check at once takes is given back. Throws Failure when it
  /// cannot be read, or is damaged, truncated or of another version.
  static std::shared_ptr<const Image> Open(const std::string& path,
                                           DamageCheck check = DamageCheck::AtOnce);
  /// An image over bytes that `owner` keeps alive, 8-byte aligned. Throws Failure like Open.
  static std::shared_ptr<const Image> Over(std::string_view bytes, std::shared_ptr<void> owner,
                                           DamageCheck check = DamageCheck::AtOnce);
  /// Looks for damage in all that has not been read yet; gives the memory that this takes back.
  bool IsSound() const;
  /// Gives back the memory of the parts that have been read, where they can be fetched again.
  void LeaveMemory() const;
  /// A database that knows nothing.
  static std::shared_ptr<const Image> Empty();

  /// The deepest node with a name on the way to an OID.
  struct Match {
    std::uint32_t node = 0;
    /// How many numbers of the OID the node stands for; 0 means that nothing is known.
    size_t depth = 0;
  };
  Match Find(std::span<const std::uint32_t> oid) const;

  /// The node below another one with this number; kNothing where there is none.
  std::uint32_t ChildOf(std::uint32_t node, std::uint32_t number) const;
  /// The node of exactly this OID, with a name or without; kNothing where there is none.
  std::uint32_t NodeAt(std::span<const std::uint32_t> oid) const;
  /// The numbers of a node's OID; none for the root, and where there is no such node.
  std::vector<std::uint32_t> OidOf(std::uint32_t node) const;

  /// The definition that names the node; an empty one where there is none.
  const format::EntryRecord& EntryOf(std::uint32_t node) const;
  /// The definition at this place in the list; an empty one where there is none.
  const format::EntryRecord& EntryAt(std::uint32_t index) const;
  /// The name of the module that an entry of this image belongs to; empty where none says so.
  std::string_view ModuleOf(const format::EntryRecord& entry) const;
  std::string_view Text(std::uint32_t offset) const;
  const format::TypeRecord& Type(std::uint32_t index) const;
  /// The nodes of the objects that a notification carries, or of the indexes of a row; the row
  /// itself that another one augments. An image below may be the one that names them.
  std::span<const std::uint32_t> Related(const format::EntryRecord& entry) const;
  /// The type's named values in the order of their numbers.
  std::span<const format::ValueRecord> Values(const format::TypeRecord& type) const;

  std::uint64_t Fingerprint() const { return fingerprint_; }
  std::uint64_t Checksum() const { return checksum_; }

  /// The lists themselves, for those who build on an image.
  std::span<const format::ModuleRecord> Modules() const { return Sound(modules_); }
  std::span<const format::EntryRecord> Entries(const format::ModuleRecord& module) const;

 private:
  Image() = default;
  const format::NodeRecord* FindChild(const format::NodeRecord& node, std::uint32_t number) const;

  /// The records, once it is known that they are what the compiler wrote.
  template <typename Record>
  std::span<const Record> Sound(std::span<const Record> records) const {
    if (guard_ != nullptr) guard_->Require(records.data(), records.size_bytes());
    return records;
  }
  template <typename Record>
  const Record& Sound(const Record& record) const {
    return Sound(std::span(&record, 1)).front();
  }

  std::shared_ptr<void> owner_;
  /// The owner, where it is a file.
  std::shared_ptr<const MappedFile> file_;
  /// Null once everything has been checked.
  std::unique_ptr<BlockGuard> guard_;
  std::span<const format::ModuleRecord> modules_;
  std::span<const format::EntryRecord> entries_;
  std::span<const format::NodeRecord> nodes_;
  std::span<const format::TypeRecord> types_;
  std::span<const format::ValueRecord> values_;
  std::span<const std::uint32_t> related_;
  std::string_view strings_;
  std::uint64_t fingerprint_ = 0;
  std::uint64_t checksum_ = 0;
};

}  // namespace sentrel::mib
