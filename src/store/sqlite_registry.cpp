#include "store/sqlite_registry.h"

#include "common/text.h"

namespace sentrel {
namespace {

using Kind = RegistryFile::Kind;

/// A program that starts has nothing better to do, and nothing else tells it what to filter.
constexpr std::chrono::seconds kPatienceOfAStart{3};

std::string WholePath(RegistryRoot root, const std::string& path) {
  return (root == RegistryRoot::HKEY_LOCAL_MACHINE ? "HKEY_LOCAL_MACHINE\\"
                                                   : "HKEY_CURRENT_USER\\") +
         path;
}

bool IsEntry(const std::string& name) {
  return !name.empty() && name.find_first_not_of("0123456789") == std::string::npos;
}

bool IsAbsent(Kind kind) {
  return kind == Kind::None || kind == Kind::Deleted;
}

}  // namespace

SqliteRegistry::SqliteRegistry(const std::filesystem::path& machineFile,
                               const std::filesystem::path& userFile, const Clock& clock)
    : machine_(machineFile, Audience::Everybody, clock, machinePatience_),
      user_(userFile, Audience::OwnerOnly, clock, userPatience_) {}

std::optional<RegistryKey> SqliteRegistry::CreateKey(RegistryRoot root, const std::string& path) {
  if (path.empty()) return std::nullopt;
  if (IsUnreachable(root, path)) return std::nullopt;
  const Key key{root, WholePath(root, path)};
  const RegistryKey opened = Opened(key);
  const bool there = Exists(key).value_or(false) || Write([&] {
                       RegistryFile* target = Target(root);
                       return target && target->MakeKey(key.path);
                     });
  if (there) return opened;
  CloseKey(opened);
  return std::nullopt;
}

std::optional<RegistryKey> SqliteRegistry::OpenKey(RegistryRoot root, const std::string& path) {
  const Key key{root, WholePath(root, path)};
  const RegistryKey opened = Opened(key);
  if (CanOpen(key)) return opened;
  CloseKey(opened);
  return std::nullopt;
}

bool SqliteRegistry::CloseKey(RegistryKey key) {
  const bool wasOpen = open_.erase(key) > 0;
  CloseIfUnused();
  return wasOpen;
}

std::optional<std::string> SqliteRegistry::QueryStringValue(RegistryKey key,
                                                            const std::string& name) {
  const Key* opened = Find(key);
  if (!opened) return std::nullopt;
  RegistryFile::Value value = Get(*opened, name);
  if (value.kind == Kind::Unreadable) SetUnreachable(*opened);
  if (value.kind != Kind::Text) return std::nullopt;
  return std::move(value.text);
}

bool SqliteRegistry::SetStringValue(RegistryKey key, const std::string& name,
                                    const std::string& text) {
  const Key* opened = Find(key);
  return opened && Write([&] {
           RegistryFile* target = Target(opened->root);
           return target && target->Set(opened->path, name, text) &&
                  (target == &user_ || DropOverlay(*opened, name));
         });
}

bool SqliteRegistry::DeleteValue(RegistryKey key, const std::string& name) {
  const Key* opened = Find(key);
  if (!opened) return false;
  const bool isThere = !IsAbsent(Get(*opened, name).kind);
  if (!isThere && !IsOverlaid(*opened, name)) return false;
  const bool done = Write([&] {
    RegistryFile* target = Target(opened->root);
    if (!target) return false;
    if (target == &machine_)
      return target->Remove(opened->path, name) && DropOverlay(*opened, name);
    return !isThere || HideMachines(*opened, name);
  });
  return done && isThere;
}

void SqliteRegistry::BeginBatch(RegistryBatch kind) {
  BeginUndertaking(kind);
  Begin(kind);
}

bool SqliteRegistry::EndBatch() {
  const bool kept = End();
  CloseIfUnused();
  return kept;
}

bool SqliteRegistry::IsUnreachable(RegistryRoot root, const std::string& path) const {
  return unreachable_.contains(UpperCase(WholePath(root, path)));
}

const SqliteRegistry::Key* SqliteRegistry::Find(RegistryKey key) const {
  const auto found = open_.find(key);
  return found == open_.end() ? nullptr : &found->second;
}

std::optional<bool> SqliteRegistry::Exists(const Key& key) {
  const auto own = user_.HasKey(key.path);
  if (key.root == RegistryRoot::HKEY_CURRENT_USER) return own;
  const auto shared = machine_.HasKey(key.path);
  if (!own || !shared) return std::nullopt;
  return *own || *shared;
}

bool SqliteRegistry::CanOpen(const Key& key) {
  const auto marked = unreachable_.find(UpperCase(key.path));
  const bool isWrite = batch_ == RegistryBatch::Write;
  if (marked != unreachable_.end() && (isWrite || marked->second == undertaking_)) return false;
  const auto exists = Exists(key);
  // Who comes to write need not know what is there.
  if (isWrite) return exists.value_or(true);
  if (marked != unreachable_.end()) unreachable_.erase(marked);
  if (!exists) SetUnreachable(key);
  return exists.value_or(false);
}

void SqliteRegistry::SetUnreachable(const Key& key) {
  if (batch_ != RegistryBatch::Write) unreachable_[UpperCase(key.path)] = undertaking_;
}

RegistryKey SqliteRegistry::Opened(const Key& key) {
  if (open_.empty() && !batch_) BeginUndertaking(RegistryBatch::Read);
  open_.emplace(++lastKey_, key);
  return lastKey_;
}

RegistryFile::Value SqliteRegistry::Get(const Key& key, const std::string& name) {
  RegistryFile::Value own = user_.Get(key.path, name);
  if (own.kind != Kind::None || key.root == RegistryRoot::HKEY_CURRENT_USER) return own;
  if (IsEntry(name)) {
    const auto hasList = user_.HasEntries(key.path);
    if (!hasList) return {Kind::Unreadable, {}};
    if (*hasList) return own;
  }
  return machine_.Get(key.path, name);
}

template <typename Step>
bool SqliteRegistry::Write(Step step) {
  if (batch_ && batch_ != RegistryBatch::Write) return false;
  if (batch_) {
    const bool done = step();
    failed_ = failed_ || !done;
    return done;
  }
  Begin(RegistryBatch::Write);
  failed_ = !step();
  return End();
}

RegistryFile* SqliteRegistry::Target(RegistryRoot root) {
  if (root == RegistryRoot::HKEY_LOCAL_MACHINE) {
    if (!machineTakesWrites_) machineTakesWrites_ = machine_.CanWrite();
    if (*machineTakesWrites_) return &machine_;
  }
  return user_.CanWrite() ? &user_ : nullptr;
}

bool SqliteRegistry::IsOverlaid(const Key& key, const std::string& name) {
  if (key.root == RegistryRoot::HKEY_CURRENT_USER) return false;
  if (IsEntry(name)) return user_.HasEntries(key.path).value_or(false);
  const Kind kind = user_.Get(key.path, name).kind;
  return kind != Kind::None && kind != Kind::Unreadable;
}

bool SqliteRegistry::DropOverlay(const Key& key, const std::string& name) {
  if (!IsOverlaid(key, name)) return true;
  if (!user_.CanWrite()) return false;
  return IsEntry(name) ? user_.RemoveEntries(key.path) : user_.Remove(key.path, name);
}

bool SqliteRegistry::HideMachines(const Key& key, const std::string& name) {
  const bool isOwn = key.root == RegistryRoot::HKEY_CURRENT_USER;
  // The last entry of a list goes, but the machine's list is not to come back.
  const bool isHidden =
      !isOwn && (IsEntry(name) || machine_.Get(key.path, name).kind != Kind::None);
  return isHidden ? user_.Set(key.path, name, std::nullopt) : user_.Remove(key.path, name);
}

void SqliteRegistry::Begin(RegistryBatch kind) {
  batch_ = kind;
  machine_.Begin(kind);
  user_.Begin(kind);
}

bool SqliteRegistry::End() {
  bool kept = false;
  if (!failed_) kept = machine_.Commit() && user_.Commit();
  machine_.Rollback();
  user_.Rollback();
  batch_.reset();
  machineTakesWrites_.reset();
  failed_ = false;
  return kept;
}

void SqliteRegistry::BeginUndertaking(RegistryBatch kind) {
  ++undertaking_;
  for (Patience* patience : {&machinePatience_, &userPatience_}) {
    if (kind == RegistryBatch::PatientRead) {
      patience->Renew(kPatienceOfAStart);
    } else {
      patience->Renew();
    }
  }
}

void SqliteRegistry::CloseIfUnused() {
  if (batch_ || !open_.empty()) return;
  machine_.Close();
  user_.Close();
}

}  // namespace sentrel
