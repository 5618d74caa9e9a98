#include "mib/library.h"

#include <algorithm>

#include "common/failure.h"
#include "mib/lookup.h"
#include "mib/object_facts.h"

namespace sentrel::mib {
namespace {

/// How many times as long as a look at the folders took the next one is put off, so that folders of
/// many files cost no more than a part of a processor.
constexpr int kPauseFactor = 40;

std::shared_ptr<const Database> OpenOrEmpty(const std::string& path) {
  try {
    return std::make_shared<Database>(Image::Open(path, DamageCheck::WhenRead));
  } catch (const Failure&) {
    return std::make_shared<Database>();
  }
}

class DatabaseObject : public OIDObject {
 public:
  explicit DatabaseObject(std::shared_ptr<const Database> database)
      : database_(std::move(database)) {}

  /// Damage costs the names that it hits.
  void SetOID(const std::string& oid) override {
    if (!Attempt([&] { found_ = LookUp(*database_, oid); })) found_ = {oid, {}};
  }
  const std::string& Name() const override { return found_.name; }

  /// Made when first asked for: the list of ifType alone has some 300 labels.
  const std::string& EnumerationList() const override {
    if (list_.empty()) Attempt([&] { list_ = ListOf(found_.type); });
    return list_;
  }

  std::string EnumerationName(std::int32_t number) const override {
    std::string label = "unknown(0)";
    Attempt([&] { label = LabelOf(found_.type, number); });
    return label;
  }

 private:
  std::shared_ptr<const Database> database_;
  Lookup found_;
  mutable std::string list_;
};

}  // namespace

Library::Library(LibrarySetup setup, std::function<void()> onNewImage)
    : setup_(std::move(setup)),
      onNewImage_(std::move(onNewImage)),
      database_(OpenOrEmpty(setup_.builtInImage)),
      cache_(setup_.cacheFile, setup_.folders, database_),
      newest_(database_),
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
  return std::make_shared<DatabaseObject>(database_);
}

ObjectFacts Library::FactsOf(std::span<const std::uint32_t> oid) const {
  ObjectFacts facts;
  Attempt([&] { facts = mib::FactsOf(*database_, oid); });
  return facts;
}

void Library::Adopt() {
  const std::lock_guard lock(mutex_);
  database_ = newest_;
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
  const auto database = cache_.Get(options);
  if (database == nullptr) return;
  {
    const std::lock_guard lock(mutex_);
    if (database == newest_) return;
    newest_ = database;
  }
  onNewImage_();
}

/// Returns when the folders have changed; false when the library ends.
bool Library::Sleep() {
  using Clock = std::chrono::steady_clock;
  Clock::duration pause = setup_.interval;
  std::unique_lock lock(mutex_);
  while (!wake_.wait_for(lock, pause, [this] { return stop_.load(); })) {
    lock.unlock();
    const auto begin = Clock::now();
    bool isOutdated = false;
    Attempt([&] { isOutdated = cache_.IsOutdated(); });
    if (isOutdated) return true;
    pause = std::max<Clock::duration>(setup_.interval, kPauseFactor * (Clock::now() - begin));
    lock.lock();
  }
  return false;
}

}  // namespace sentrel::mib
