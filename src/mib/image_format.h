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
inline constexpr std::uint32_t kVersion = 1;
inline constexpr std::uint32_t kByteOrder = 0x01020304;

struct Section {
  std::uint64_t offset = 0;  ///< in bytes from the start of the file, a multiple of 8
  std::uint64_t count = 0;   ///< of records
};

enum SectionName { kModules, kEntries, kNodes, kTypes, kValues, kStrings, kSectionCount };

struct Header {
  char magic[8];
  std::uint32_t version;
  std::uint32_t byteOrder;
  std::uint64_t size;         ///< of the whole file in bytes
  std::uint64_t checksum;     ///< of everything behind this field
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
  std::uint32_t kind;
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
  std::uint32_t firstValue;
  std::uint32_t valueCount;
};

struct ValueRecord {
  std::int32_t value;
  std::uint32_t label;
};

/// Where the part of the file begins that the checksum covers.
inline constexpr size_t kChecksummed = offsetof(Header, fingerprint);

/// The checksum of the covered bytes: eight interleaved multiplicative hashes, so that a file of
/// ten megabytes costs about a millisecond.
std::uint64_t Checksum(std::string_view bytes);

}  // namespace format
}  // namespace sentrel::mib
