#include "mib/image.h"

#include <algorithm>
#include <cstring>
#include <functional>

#include "common/failure.h"

namespace sentrel::mib {
namespace {

using format::Header;

template <typename Record>
std::span<const Record> SectionOf(std::string_view bytes, const Header& header,
                                  format::SectionName name) {
  const format::Section& section = header.sections[name];
  const size_t end = sizeof(Header) + format::BodyOf(bytes).size();
  if (section.offset % alignof(std::uint64_t) != 0 || section.offset < sizeof(Header) ||
      section.offset > end || section.count > (end - section.offset) / sizeof(Record)) {
    throw Failure("a section of the MIB image lies outside of it");
  }
  return {reinterpret_cast<const Record*>(bytes.data() + section.offset), section.count};
}

Header HeaderOf(std::string_view bytes) {
  Header header;
  if (bytes.size() < sizeof header) throw Failure("the MIB image is truncated");
  std::memcpy(&header, bytes.data(), sizeof header);
  if (std::memcmp(header.magic, format::kMagic, sizeof header.magic) != 0) {
    throw Failure("the file is no MIB image");
  }
  if (header.version != format::kVersion || header.byteOrder != format::kByteOrder) {
    throw Failure("the MIB image is of another version");
  }
  const size_t covered = format::BlocksIn(bytes.size()) * format::kBlock;
  if (header.size != bytes.size() || format::BodyOf(bytes).size() > covered) {
    throw Failure("the MIB image is truncated");
  }
  if (format::HeaderChecksum(bytes) != header.checksum) {
    throw Failure("the MIB image is damaged");
  }
  return header;
}

/// The elements from `first` on, as many of them as there really are.
template <typename Record>
std::span<const Record> Part(std::span<const Record> all, std::uint32_t first,
                             std::uint32_t count) {
  if (first >= all.size()) return {};
  return all.subspan(first, std::min<size_t>(count, all.size() - first));
}

}  // namespace

std::shared_ptr<const Image> Image::Open(const std::string& path, DamageCheck check) {
  using Loading = MappedFile::Loading;
  auto file = std::make_shared<MappedFile>(
      path, check == DamageCheck::AtOnce ? Loading::AtOnce : Loading::WhenRead);
  const auto image = std::const_pointer_cast<Image>(Over(file->Bytes(), file, check));
  image->file_ = file;
  if (check == DamageCheck::AtOnce) image->LeaveMemory();
  return image;
}

bool Image::IsSound() const {
  if (guard_ == nullptr) return true;
  return Attempt([this] { guard_->RequireAll([this] { LeaveMemory(); }); });
}

void Image::LeaveMemory() const {
  if (file_ != nullptr) file_->LeaveMemory();
}

std::shared_ptr<const Image> Image::Over(std::string_view bytes, std::shared_ptr<void> owner,
                                         DamageCheck check) {
  const Header header = HeaderOf(bytes);
  auto guard = std::make_unique<BlockGuard>(bytes);
  if (check == DamageCheck::AtOnce) {
    guard->RequireAll();
    guard.reset();
  }
  auto image = std::shared_ptr<Image>(new Image);
  image->owner_ = std::move(owner);
  image->guard_ = std::move(guard);
  image->modules_ = SectionOf<format::ModuleRecord>(bytes, header, format::kModules);
  image->entries_ = SectionOf<format::EntryRecord>(bytes, header, format::kEntries);
  image->nodes_ = SectionOf<format::NodeRecord>(bytes, header, format::kNodes);
  image->types_ = SectionOf<format::TypeRecord>(bytes, header, format::kTypes);
  image->values_ = SectionOf<format::ValueRecord>(bytes, header, format::kValues);
  image->related_ = SectionOf<std::uint32_t>(bytes, header, format::kRelated);
  const auto strings = SectionOf<char>(bytes, header, format::kStrings);
  image->strings_ = {strings.data(), strings.size()};
  image->fingerprint_ = header.fingerprint;
  image->checksum_ = header.checksum;
  return image;
}

std::shared_ptr<const Image> Image::Empty() {
  return std::shared_ptr<Image>(new Image);
}

Image::Match Image::Find(std::span<const std::uint32_t> oid) const {
  Match match;
  if (nodes_.empty()) return match;
  const format::NodeRecord* node = &Sound(nodes_.front());
  for (size_t depth = 1; depth <= oid.size(); ++depth) {
    node = FindChild(*node, oid[depth - 1]);
    if (node == nullptr) break;
    if (node->entry != kNothing) match = {static_cast<std::uint32_t>(node - nodes_.data()), depth};
  }
  return match;
}

std::uint32_t Image::ChildOf(std::uint32_t node, std::uint32_t number) const {
  if (node >= nodes_.size()) return kNothing;
  const format::NodeRecord* child = FindChild(Sound(nodes_[node]), number);
  return child == nullptr ? kNothing : static_cast<std::uint32_t>(child - nodes_.data());
}

std::uint32_t Image::NodeAt(std::span<const std::uint32_t> oid) const {
  std::uint32_t node = 0;
  for (const std::uint32_t number : oid) node = ChildOf(node, number);
  return node;
}

std::vector<std::uint32_t> Image::OidOf(std::uint32_t node) const {
  std::vector<std::uint32_t> oid;
  while (node > 0 && node < nodes_.size()) {
    const format::NodeRecord& record = Sound(nodes_[node]);
    // Parents come first: in a forged image as well the way up ends.
    if (record.parent >= node || oid.size() == OidTree::kDeepest) return {};
    oid.push_back(record.number);
    node = record.parent;
  }
  std::reverse(oid.begin(), oid.end());
  return oid;
}

const format::NodeRecord* Image::FindChild(const format::NodeRecord& node,
                                           std::uint32_t number) const {
  const auto children = Sound(Part(nodes_, node.firstChild, node.childCount));
  // Tables and groups number their children from 1 without gaps: the place is mostly known.
  if (number - 1 < children.size() && children[number - 1].number == number) {
    return &children[number - 1];
  }
  const auto found = std::lower_bound(
      children.begin(), children.end(), number,
      [](const format::NodeRecord& child, std::uint32_t wanted) { return child.number < wanted; });
  return found != children.end() && found->number == number ? &*found : nullptr;
}

const format::EntryRecord& Image::EntryOf(std::uint32_t node) const {
  return EntryAt(node < nodes_.size() ? Sound(nodes_[node]).entry : kNothing);
}

const format::EntryRecord& Image::EntryAt(std::uint32_t index) const {
  static constexpr format::EntryRecord kNone = {kNothing, kNothing, kNothing, 0, 0, 0};
  return index < entries_.size() ? Sound(entries_[index]) : kNone;
}

std::string_view Image::ModuleOf(const format::EntryRecord& entry) const {
  const bool isOwn = std::less_equal<>()(entries_.data(), &entry) &&
                     std::less<>()(&entry, entries_.data() + entries_.size());
  if (!isOwn) return {};
  const auto index = static_cast<std::uint32_t>(&entry - entries_.data());
  const auto modules = Modules();
  const auto behind = std::upper_bound(
      modules.begin(), modules.end(), index,
      [](std::uint32_t at, const format::ModuleRecord& module) { return at < module.firstEntry; });
  if (behind == modules.begin()) return {};
  const format::ModuleRecord& module = *(behind - 1);
  return index - module.firstEntry < module.entryCount ? Text(module.name) : std::string_view();
}

std::string_view Image::Text(std::uint32_t offset) const {
  if (offset >= strings_.size()) return {};
  const std::string_view rest = strings_.substr(offset);
  const std::string_view text = rest.substr(0, rest.find('\0'));
  // The end is as much of a promise as the text is.
  if (guard_ != nullptr) guard_->Require(text.data(), std::min(text.size() + 1, rest.size()));
  return text;
}

const format::TypeRecord& Image::Type(std::uint32_t index) const {
  static constexpr format::TypeRecord kNone = {};
  return index < types_.size() ? Sound(types_[index]) : kNone;
}

std::span<const std::uint32_t> Image::Related(const format::EntryRecord& entry) const {
  return Sound(Part(related_, entry.firstRelated, entry.relatedCount));
}

std::span<const format::ValueRecord> Image::Values(const format::TypeRecord& type) const {
  return Sound(Part(values_, type.firstValue, type.valueCount));
}

std::span<const format::EntryRecord> Image::Entries(const format::ModuleRecord& module) const {
  return Sound(Part(entries_, module.firstEntry, module.entryCount));
}

}  // namespace sentrel::mib
