#include "mib/image_writer.h"

#include <algorithm>
#include <cstring>
#include <future>
#include <span>

#include "mib/hash.h"
#include "mib/huge_pages.h"
#include "mib/image_format.h"

namespace sentrel::mib {
namespace {

/// Where each part of an image is.
struct Layout {
  format::Section sections[format::kSectionCount];
  size_t end = sizeof(format::Header);

  template <typename Record>
  void Add(format::SectionName name, size_t count) {
    end = (end + 7) / 8 * 8;
    sections[name] = {end, count};
    end += count * sizeof(Record);
  }
};

/// Texts come last: how many bytes they take in the end is known only when they stand there.
Layout LayoutOf(const Catalog& catalog) {
  size_t values = 0;
  size_t characters = 1;
  for (const ResolvedType& type : catalog.types) {
    values += type.valueCount;
    characters += type.hint.size() + type.units.size() + 2;
    for (const NamedValue& value : std::span(type.values, type.valueCount)) {
      characters += value.label.size() + 1;
    }
  }
  for (const Entry& entry : catalog.entries) characters += entry.name.size() + 1;
  for (const CatalogModule& module : catalog.modules) characters += module.name.size() + 1;
  Layout layout;
  layout.Add<format::NodeRecord>(format::kNodes, catalog.tree.Nodes().size());
  layout.Add<format::EntryRecord>(format::kEntries, catalog.entries.size());
  layout.Add<format::TypeRecord>(format::kTypes, catalog.types.size());
  layout.Add<format::ValueRecord>(format::kValues, values);
  layout.Add<std::uint32_t>(format::kRelated, catalog.related.size());
  layout.Add<format::ModuleRecord>(format::kModules, catalog.modules.size());
  layout.Add<char>(format::kStrings, characters);
  return layout;
}

/// The texts of an image, each with a zero behind it, written one behind the other.
class StringPool {
 public:
  /// Has room for all of them.
  explicit StringPool(char* place) : place_(place), slots_(4096) { place_[size_++] = '\0'; }

  /// For texts that hardly ever come twice.
  std::uint32_t AddNew(std::string_view text) {
    const auto offset = static_cast<std::uint32_t>(size_);
    std::copy(text.begin(), text.end(), place_ + size_);
    size_ += text.size();
    place_[size_++] = '\0';
    return offset;
  }

  /// Equal texts come to stand at one place.
  std::uint32_t Add(std::string_view text) {
    if (text.empty()) return 0;
    const std::uint64_t hash = Hash(text);
    Slot& slot = SlotOf(text, hash);
    if (slot.offset == 0) {
      slot = {AddNew(text), static_cast<std::uint32_t>(hash)};
      if (const auto offset = slot.offset; ++count_ * 2 > slots_.size()) {
        Grow();
        return offset;
      }
    }
    return slot.offset;
  }

  size_t Size() const { return size_; }

 private:
  struct Slot {
    std::uint32_t offset = 0;
    std::uint32_t hash = 0;
  };

  Slot& SlotOf(std::string_view text, std::uint64_t hash) {
    const size_t mask = slots_.size() - 1;
    size_t at = static_cast<std::uint32_t>(hash) & mask;
    while (slots_[at].offset != 0) {
      const Slot& slot = slots_[at];
      if (slot.hash == static_cast<std::uint32_t>(hash) && text == place_ + slot.offset) break;
      at = (at + 1) & mask;
    }
    return slots_[at];
  }

  void Grow() {
    BigVector<Slot> old(slots_.size() * 4);
    old.swap(slots_);
    for (const Slot& slot : old) {
      if (slot.offset == 0) continue;
      size_t at = slot.hash & (slots_.size() - 1);
      while (slots_[at].offset != 0) at = (at + 1) & (slots_.size() - 1);
      slots_[at] = slot;
    }
  }

  char* place_;
  size_t size_ = 0;
  BigVector<Slot> slots_;
  size_t count_ = 0;
};

/// Writes the nodes in the order of the image.
class BreadthFirst {
 public:
  BreadthFirst(const Catalog& catalog, format::NodeRecord* records)
      : tree_(catalog.tree.Nodes()), records_(records) {
    GroupChildren();
    placeOf_.resize(tree_.size());
    order_.reserve(tree_.size());
    order_.push_back(OidTree::kRoot);
    for (size_t i = 0; i < tree_.size(); ++i) Append(order_[i], catalog.names[order_[i]]);
    for (size_t i = 0; i < tree_.size(); ++i) records[i].parent = placeOf_[records[i].parent];
  }

  /// Where a node of the tree went.
  std::uint32_t PlaceOf(std::uint32_t node) const { return placeOf_[node]; }

 private:
  /// Sorts children_ by parent and number; firstChild_ tells where a parent's children begin.
  void GroupChildren() {
    firstChild_.assign(tree_.size() + 1, 0);
    for (size_t i = 1; i < tree_.size(); ++i) ++firstChild_[tree_[i].parent + 1];
    for (size_t i = 1; i < firstChild_.size(); ++i) firstChild_[i] += firstChild_[i - 1];
    children_.resize(tree_.size());
    BigVector<std::uint32_t> next = firstChild_;
    for (std::uint32_t i = 1; i < tree_.size(); ++i) children_[next[tree_[i].parent]++] = i;
    for (size_t i = 0; i < tree_.size(); ++i) {
      std::sort(children_.begin() + firstChild_[i], children_.begin() + firstChild_[i + 1],
                [this](auto a, auto b) { return tree_[a].number < tree_[b].number; });
    }
  }

  void Append(std::uint32_t node, std::uint32_t entry) {
    placeOf_[node] = appended_;
    const auto first = firstChild_[node];
    const auto count = firstChild_[node + 1] - first;
    records_[appended_++] = {tree_[node].number, tree_[node].parent,
                             static_cast<std::uint32_t>(order_.size()), count, entry};
    order_.insert(order_.end(), children_.begin() + first, children_.begin() + first + count);
  }

  const BigVector<OidTree::Node>& tree_;
  format::NodeRecord* records_;
  std::uint32_t appended_ = 0;
  BigVector<std::uint32_t> placeOf_;
  BigVector<std::uint32_t> firstChild_;
  BigVector<std::uint32_t> children_;
  BigVector<std::uint32_t> order_;
};

/// This many zeros.
std::string MakeRoom(size_t size) {
  std::string room;
  room.reserve(size);
  AskForHugePages(room.data(), size);
  room.resize(size);
  return room;
}

/// An image while it is being written.
class ImageWriter {
 public:
  explicit ImageWriter(const Catalog& catalog)
      : catalog_(catalog), layout_(LayoutOf(catalog)), image_(MakeRoom(layout_.end)) {}

  std::string Write(std::uint64_t fingerprint) {
    auto nodes = std::async(std::launch::async, [this] {
      return BreadthFirst(catalog_, Records<format::NodeRecord>(format::kNodes));
    });
    StringPool strings(Records<char>(format::kStrings));
    WriteEntries(strings);
    WriteTypes(strings);
    WriteModules(strings);
    PlaceNodes(nodes.get());
    layout_.sections[format::kStrings].count = strings.Size();
    WriteHeader(fingerprint);
    const size_t body =
        layout_.sections[format::kStrings].offset + strings.Size() - sizeof(format::Header);
    const size_t blocks = (body + format::kBlock - 1) / format::kBlock;
    image_.resize(sizeof(format::Header) + body + blocks * sizeof(std::uint64_t));
    Seal(image_);
    return std::move(image_);
  }

 private:
  template <typename Record>
  Record* Records(format::SectionName name) {
    return reinterpret_cast<Record*>(image_.data() + layout_.sections[name].offset);
  }

  /// For now the entries refer to the nodes of the tree.
  void WriteEntries(StringPool& strings) {
    auto* record = Records<format::EntryRecord>(format::kEntries);
    for (const Entry& entry : catalog_.entries) {
      *record++ = {
          strings.AddNew(entry.name), entry.node,          entry.type,
          entry.related.begin,        RelatedCount(entry), static_cast<std::uint16_t>(entry.kind)};
    }
  }

  static std::uint16_t RelatedCount(const Entry& entry) {
    return static_cast<std::uint16_t>(std::min<std::uint32_t>(entry.related.count, 0xFFFF));
  }

  void WriteTypes(StringPool& strings) {
    auto* record = Records<format::TypeRecord>(format::kTypes);
    auto* value = Records<format::ValueRecord>(format::kValues);
    std::uint32_t values = 0;
    for (const ResolvedType& type : catalog_.types) {
      *record++ = {static_cast<std::uint32_t>(type.base), strings.Add(type.hint),
                   strings.Add(type.units), values, type.valueCount};
      for (const NamedValue& named : std::span(type.values, type.valueCount)) {
        *value++ = {named.value, strings.Add(named.label)};
      }
      values += type.valueCount;
    }
  }

  void WriteModules(StringPool& strings) {
    auto* record = Records<format::ModuleRecord>(format::kModules);
    for (const CatalogModule& module : catalog_.modules) {
      *record++ = {module.lastUpdated, strings.Add(module.name), module.entries.begin,
                   module.entries.count, 0};
    }
  }

  void PlaceNodes(const BreadthFirst& nodes) {
    auto* record = Records<format::EntryRecord>(format::kEntries);
    for (size_t i = 0; i < catalog_.entries.size(); ++i, ++record) {
      if (record->node != kNothing) record->node = nodes.PlaceOf(record->node);
    }
    auto* related = Records<std::uint32_t>(format::kRelated);
    for (const std::uint32_t node : catalog_.related) *related++ = nodes.PlaceOf(node);
  }

  void WriteHeader(std::uint64_t fingerprint) {
    format::Header header{};
    header.fingerprint = fingerprint;
    std::copy(std::begin(layout_.sections), std::end(layout_.sections), header.sections);
    std::memcpy(image_.data(), &header, sizeof header);
  }

  const Catalog& catalog_;
  Layout layout_;
  std::string image_;
};

}  // namespace

std::string MakeImage(const Catalog& catalog, std::uint64_t fingerprint) {
  return ImageWriter(catalog).Write(fingerprint);
}

void Seal(std::string& image) {
  format::Header header;
  std::memcpy(&header, image.data(), sizeof header);
  std::memcpy(header.magic, format::kMagic, sizeof header.magic);
  header.version = format::kVersion;
  header.byteOrder = format::kByteOrder;
  header.size = image.size();
  std::memcpy(image.data(), &header, sizeof header);
  const size_t body = format::BodyOf(image).size();
  for (size_t block = 0; block < format::BlocksIn(image.size()); ++block) {
    const std::uint64_t sum = format::Checksum(format::BlockOf(image, block));
    std::memcpy(image.data() + sizeof header + body + block * sizeof sum, &sum, sizeof sum);
  }
  const std::uint64_t sum = format::HeaderChecksum(image);
  std::memcpy(image.data() + offsetof(format::Header, checksum), &sum, sizeof sum);
}

}  // namespace sentrel::mib
