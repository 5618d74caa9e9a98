#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace sentrel::mib {

/// The layout of an image file; docs/mib-database.md tells it whole. All numbers are in the byte
/// order of the machine that wrote the file.
namespace format {

inline constexpr char kMagic[8] = {'S', 'e', 'n', 't', 'r', 'e', 'l', 'M'};
/// Goes up with every change of layout or of what a compilation yields.
inline constexpr std::uint32_t kVersion = 5;
inline constexpr std::uint32_t kByteOrder = 0x01020304;

struct Section {
  std::uint64_t offset = 0;  ///< in bytes from the start of the file, a multiple of 8
  std::uint64_t count = 0;   ///< of records
};

enum SectionName { kModules, kEntries, kNodes, kTypes, kValues, kRelated, kStrings, kSectionCount };

struct Header {
  char magic[8];
  std::uint32_t version;
  std::uint32_t byteOrder;
  std::uint64_t size;         ///< of the whole file in bytes
  std::uint64_t checksum;     ///< of the rest of the header and of the blocks' checksums
  std::uint64_t fingerprint;  ///< tells what sources the image was made from
  Section sections[kSectionCount];
};

struct ModuleRecord {
  std::uint64_t lastUpdated;
  std::uint32_t name;
  std::uint32_t firstEntry;
  std::uint32_t entryCount;
  std::uint32_t unused;
};

struct EntryRecord {
  std::uint32_t name;
  std::uint32_t node;
  std::uint32_t type;
  std::uint32_t firstRelated;
  std::uint16_t relatedCount;
  std::uint16_t kind;
};

/// Nodes are in breadth-first order: the children of one node stand side by side, sorted by
/// number, behind their parent. Node 0 is the root.
struct NodeRecord {
  std::uint32_t number;
  std::uint32_t parent;
  std::uint32_t firstChild;
  std::uint32_t childCount;
  std::uint32_t entry;  ///< kNothing where the node has no name
};

struct TypeRecord {
  std::uint32_t base;
  std::uint32_t hint;
  std::uint32_t units;
  std::uint32_t firstValue;
  std::uint32_t valueCount;
};

struct ValueRecord {
  std::int32_t value;
  std::uint32_t label;
};

/// What lies between the header and the end of the file is cut into blocks. The file ends with the
/// checksum of each of them, so that a reader of a few names checks a few blocks.
inline constexpr size_t kBlock = 16 * 1024;

/// The number of blocks in an image of this size, which is that of a header or more.
constexpr size_t BlocksIn(size_t imageSize) {
  return (imageSize - sizeof(Header) + kBlock) / (kBlock + sizeof(std::uint64_t));
}

/// The bytes that stand in blocks.
std::string_view BodyOf(std::string_view image);
/// A block of the body; the last one may be shorter than the others.
std::string_view BlockOf(std::string_view image, size_t block);
/// The checksum that the file gives for a block.
std::uint64_t ChecksumOf(std::string_view image, size_t block);
/// The checksum that belongs into the header.
std::uint64_t HeaderChecksum(std::string_view image);

/// Eight interleaved multiplicative hashes: about ten bytes a nanosecond.
std::uint64_t Checksum(std::string_view bytes);

}  // namespace format
}  // namespace sentrel::mib
