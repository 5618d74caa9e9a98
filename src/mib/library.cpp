#include "mib/library.h"

#include <algorithm>

#include "common/failure.h"
#include "mib/lookup.h"

namespace sentrel::mib {
namespace {

/// In times of what looking at the folders takes: even 100,000 files keep no processor busy.
constexpr int kRestAfterLook = 50;

std::shared_ptr<const Image> OpenOrEmpty(const std::string& path) {
  try {
    return Image::Open(path, DamageCheck::WhenRead);
  } catch (const Failure&) {
    return Image::Empty();
  }
}

class DatabaseObject : public OIDObject {
 public:
  explicit DatabaseObject(std::shared_ptr<const Image> image) : image_(std::move(image)) {}

  /// Damage costs the names that it hits.
  void SetOID(const std::string& oid) override {
    if (!Attempt([&] { found_ = LookUp(*image_, oid); })) found_ = {oid, nullptr};
  }
  const std::string& Name() const override { return found_.name; }

  /// Made when first asked for: the list of ifType alone has some 300 labels.
  const std::string& EnumerationList() const override {
    if (list_.empty() && found_.type != nullptr) {
      Attempt([&] { list_ = ListOf(*image_, *found_.type); });
    }
    return list_;
  }

  std::string EnumerationName(std::int32_t number) const override {
    std::string label = "unknown(0)";
    if (found_.type != nullptr) Attempt([&] { label = LabelOf(*image_, *found_.type, number); });
    return label;
  }

 private:
  std::shared_ptr<const Image> image_;
  Lookup found_;
  mutable std::string list_;
};

}  // namespace

Library::Library(LibrarySetup setup, std::function<void()> onNewImage)
    : setup_(std::move(setup)),
      onNewImage_(std::move(onNewImage)),
      image_(OpenOrEmpty(setup_.builtInImage)),
      cache_(setup_.cacheFile, setup_.folders, image_),
      newest_(image_),
      thread_([this] { Work(); }) {}

Library::~Library() {
  {
    const std::lock_guard lock(mutex_);
    stop_ = true;
  }
  wake_.notify_all();
  thread_.join();
}

std::shared_ptr<OIDObject> Library::MakeOIDObject() {
  return std::make_shared<DatabaseObject>(image_);
}

void Library::Adopt() {
  const std::lock_guard lock(mutex_);
  image_ = newest_;
}

void Library::Work() {
  do {
    // Want of memory, say: the modules known so far stay, and the next change is another chance.
    Attempt([this] { Refresh(); });
  } while (Sleep());
}

void Library::Refresh() {
  ReadOptions options;
  options.stop = &stop_;
  const auto image = cache_.Get(options);
  if (image == nullptr) return;
  {
    const std::lock_guard lock(mutex_);
    if (image == newest_) return;
    newest_ = image;
  }
  onNewImage_();
}

/// Returns when the folders have changed; false when the library ends.
bool Library::Sleep() {
  std::unique_lock lock(mutex_);
  std::chrono::nanoseconds rest = setup_.interval;
  while (!wake_.wait_for(lock, rest, [this] { return stop_.load(); })) {
    lock.unlock();
    bool isOutdated = false;
    const auto start = std::chrono::steady_clock::now();
    Attempt([&] { isOutdated = cache_.IsOutdated(); });
    if (isOutdated) return true;
    rest = std::max<std::chrono::nanoseconds>(
        setup_.interval, kRestAfterLook * (std::chrono::steady_clock::now() - start));
    lock.lock();
  }
  return false;
}

}  // namespace sentrel::mib
