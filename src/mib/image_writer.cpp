#include "mib/image_writer.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <future>

#include "common/failure.h"
#include "mib/hash.h"
#include "mib/image_format.h"

namespace sentrel::mib {
namespace {

/// The texts of an image, each with a zero behind it.
class StringPool {
 public:
  StringPool() : slots_(4096) { bytes_.push_back('\0'); }

  /// For texts that hardly ever come twice.
  std::uint32_t AddNew(std::string_view text) {
    const auto offset = static_cast<std::uint32_t>(bytes_.size());
    bytes_.append(text).push_back('\0');
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

  const std::string& Bytes() const { return bytes_; }

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
      if (slot.hash == static_cast<std::uint32_t>(hash) &&
          bytes_.compare(slot.offset, text.size(), text) == 0 &&
          bytes_[slot.offset + text.size()] == '\0') {
        break;
      }
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

  std::string bytes_;
  BigVector<Slot> slots_;
  size_t count_ = 0;
};

/// The nodes in the order of the image, and where each node of the tree went.
class BreadthFirst {
 public:
  explicit BreadthFirst(const Catalog& catalog) : tree_(catalog.tree.Nodes()) {
    GroupChildren();
    records.reserve(tree_.size());
    placeOf.resize(tree_.size());
    order_.push_back(OidTree::kRoot);
    while (records.size() < order_.size()) {
      const std::uint32_t node = order_[records.size()];
      Append(node, catalog.names[node]);
    }
    for (format::NodeRecord& record : records) record.parent = placeOf[record.parent];
  }

  BigVector<format::NodeRecord> records;
  BigVector<std::uint32_t> placeOf;

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
    placeOf[node] = static_cast<std::uint32_t>(records.size());
    const auto first = firstChild_[node];
    const auto count = firstChild_[node + 1] - first;
    records.push_back({tree_[node].number, tree_[node].parent,
                       static_cast<std::uint32_t>(order_.size()), count, entry});
    order_.insert(order_.end(), children_.begin() + first, children_.begin() + first + count);
  }

  const BigVector<OidTree::Node>& tree_;
  BigVector<std::uint32_t> firstChild_;
  BigVector<std::uint32_t> children_;
  BigVector<std::uint32_t> order_;
};

template <typename Record>
size_t SizeOf(const BigVector<Record>& records) {
  return records.size() * sizeof(Record);
}

template <typename Record>
void AppendSection(std::string& image, format::SectionName name, const Record* records,
                   size_t count) {
  image.resize((image.size() + 7) / 8 * 8);
  const format::Section section = {image.size(), count};
  std::memcpy(image.data() + offsetof(format::Header, sections) + name * sizeof section, &section,
              sizeof section);
  image.append(reinterpret_cast<const char*>(records), count * sizeof(Record));
}

/// Takes the records, so that they need not stay in memory beside their copies.
template <typename Record>
void AppendSection(std::string& image, format::SectionName name, BigVector<Record> records) {
  AppendSection(image, name, records.data(), records.size());
}

/// Everything of an image but its nodes.
class Contents {
 public:
  explicit Contents(const Catalog& catalog) {
    AddEntries(catalog.entries);
    for (const ResolvedType& type : catalog.types) AddType(type);
    for (const CatalogModule& module : catalog.modules) {
      modules.push_back({module.lastUpdated, strings.Add(module.name), module.entries.begin,
                         module.entries.count, 0});
    }
  }

  /// Until now the entries refer to the nodes of the tree.
  void PlaceNodes(const BigVector<std::uint32_t>& placeOf) {
    for (format::EntryRecord& entry : entries) {
      if (entry.node != kNothing) entry.node = placeOf[entry.node];
    }
  }

  BigVector<format::EntryRecord> entries;
  BigVector<format::TypeRecord> types;
  BigVector<format::ValueRecord> values;
  BigVector<format::ModuleRecord> modules;
  StringPool strings;

 private:
  void AddEntries(const BigVector<Entry>& all) {
    entries.reserve(all.size());
    for (const Entry& entry : all) {
      entries.push_back({strings.AddNew(entry.name), entry.node, entry.type,
                         static_cast<std::uint32_t>(entry.kind)});
    }
  }

  void AddType(const ResolvedType& type) {
    types.push_back({static_cast<std::uint32_t>(type.base), strings.Add(type.hint),
                     static_cast<std::uint32_t>(values.size()), type.valueCount});
    for (std::uint32_t i = 0; i < type.valueCount; ++i) {
      values.push_back({type.values[i].value, strings.Add(type.values[i].label)});
    }
  }
};

}  // namespace

std::string MakeImage(const Catalog& catalog, std::uint64_t fingerprint) {
  auto order = std::async(std::launch::async, [&] { return BreadthFirst(catalog); });
  Contents contents(catalog);
  BreadthFirst nodes = order.get();
  contents.PlaceNodes(nodes.placeOf);
  const std::string& strings = contents.strings.Bytes();
  std::string image(sizeof(format::Header), '\0');
  image.reserve(image.size() + format::kSectionCount * sizeof(std::uint64_t) +
                SizeOf(nodes.records) + SizeOf(contents.entries) + SizeOf(contents.types) +
                SizeOf(contents.values) + SizeOf(contents.modules) + strings.size());
  AppendSection(image, format::kNodes, std::move(nodes.records));
  AppendSection(image, format::kEntries, std::move(contents.entries));
  AppendSection(image, format::kTypes, std::move(contents.types));
  AppendSection(image, format::kValues, std::move(contents.values));
  AppendSection(image, format::kModules, std::move(contents.modules));
  AppendSection(image, format::kStrings, strings.data(), strings.size());
  std::memcpy(image.data() + offsetof(format::Header, fingerprint), &fingerprint,
              sizeof fingerprint);
  Seal(image);
  return image;
}

void Seal(std::string& image) {
  format::Header header;
  std::memcpy(&header, image.data(), sizeof header);
  std::memcpy(header.magic, format::kMagic, sizeof header.magic);
  header.version = format::kVersion;
  header.byteOrder = format::kByteOrder;
  header.size = image.size();
  header.checksum = format::Checksum(std::string_view(image).substr(format::kChecksummed));
  std::memcpy(image.data(), &header, sizeof header);
}

void WriteWhole(const std::string& path, const std::string& bytes) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  if (const fs::path folder = fs::path(path).parent_path(); !folder.empty()) {
    fs::create_directories(folder, ignored);
  }
  const std::string draft = path + "." + std::to_string(getpid()) + ".new";
  std::ofstream file(draft, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  std::error_code error;
  if (file) fs::rename(draft, path, error);
  if (file && !error) return;
  fs::remove(draft, ignored);
  throw Failure(path + ": cannot be written");
}

}  // namespace sentrel::mib
