#include "mib/image_cache.h"

#include <optional>

#include "common/atomic_file.h"
#include "common/failure.h"
#include "mib/hash.h"
#include "mib/image_writer.h"

namespace sentrel::mib {

ImageCache::ImageCache(std::string file, std::vector<Folder> folders,
                       std::shared_ptr<const Database> base, DamageCheck check)
    : file_(std::move(file)), folders_(std::move(folders)), base_(std::move(base)), check_(check) {}

std::shared_ptr<const Database> ImageCache::Get(const ReadOptions& options) {
  const SourcesMark mark = MarkSources(folders_);
  current_ = FingerprintOf(mark.fingerprint);
  if (!mark.hasFiles) return base_;
  if (auto image = FromFile(current_)) return OverBase(image);
  const auto bytes = Compile(options);
  if (bytes == nullptr) return nullptr;
  // The mapped file leaves its pages to the system; the bytes only stand in for it.
  if (auto image = FromFile(current_)) return OverBase(image);
  return OverBase(Image::Over(*bytes, bytes));
}

/// The bytes of an image of the files as they are now, written to the file; null when stopped.
std::shared_ptr<std::string> ImageCache::Compile(const ReadOptions& options) {
  Sources sources = FindSources(folders_);
  current_ = FingerprintOf(sources.fingerprint);
  Collection collection(std::move(sources.files), options);
  if (options.stop != nullptr && *options.stop) return nullptr;
  const bool isSound = base_->IsSound();
  const Database base = isSound ? *base_ : Database();
  std::optional<AtomicFile> file;
  // What a damaged base makes is not worth keeping.
  if (isSound) MakeFolderFor(file_);
  if (isSound && Attempt([&] { file.emplace(file_); }))
    file->Prepare(collection.ImageSizeEstimate());
  const Catalog catalog = collection.Compile(base);
  auto bytes = std::make_shared<std::string>(MakeImage(catalog, current_));
  base_->LeaveMemory();
  if (file) Attempt([&] { file->Write(*bytes, AtomicFile::SafeFrom::Crash); });
  return bytes;
}

bool ImageCache::IsOutdated() const {
  return FingerprintOf(MarkSources(folders_).fingerprint) != current_;
}

std::shared_ptr<const Database> ImageCache::OverBase(std::shared_ptr<const Image> image) const {
  return std::make_shared<Database>(*base_, std::move(image));
}

std::shared_ptr<const Image> ImageCache::FromFile(std::uint64_t fingerprint) const {
  try {
    auto image = Image::Open(file_, check_);
    if (image->Fingerprint() == fingerprint) return image;
  } catch (const Failure&) {
    // Absent or damaged: it is made anew.
  }
  return nullptr;
}

std::uint64_t ImageCache::FingerprintOf(std::uint64_t sources) const {
  std::uint64_t hash = sources ^ base_->Checksum();
  for (const Folder& folder : folders_) hash = Hash(folder.path, hash + (folder.recursive ? 1 : 0));
  return hash;
}

}  // namespace sentrel::mib
