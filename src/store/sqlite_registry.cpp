#include "store/sqlite_registry.h"

namespace sentrel {
namespace {

std::string WholePath(RegistryRoot root, const std::string& path) {
  return (root == RegistryRoot::HKEY_LOCAL_MACHINE ? "HKEY_LOCAL_MACHINE\\"
                                                   : "HKEY_CURRENT_USER\\") +
         path;
}

}  // namespace

SqliteRegistry::SqliteRegistry(const std::filesystem::path& machineFile,
                               const std::filesystem::path& userFile, const Clock& clock)
    : machine_(machineFile, Audience::Everybody, clock, machinePatience_),
      user_(userFile, Audience::OwnerOnly, clock, userPatience_) {}

std::optional<RegistryKey> SqliteRegistry::CreateKey(RegistryRoot root, const std::string& path) {
  if (path.empty()) return std::nullopt;
  const Key key{root, WholePath(root, path)};
  const RegistryKey opened = Opened(key);
  const bool there = Exists(key) || Write([&] {
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
  if (Exists(key)) return opened;
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
  if (value.kind != RegistryFile::Kind::Text) return std::nullopt;
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
  const auto kind = Get(*opened, name).kind;
  if (kind == RegistryFile::Kind::None || kind == RegistryFile::Kind::Deleted) return false;
  return Write([&] {
    RegistryFile* target = Target(opened->root);
    if (!target) return false;
    const bool overlays = target == &user_ && opened->root == RegistryRoot::HKEY_LOCAL_MACHINE;
    if (overlays && machine_.Get(opened->path, name).kind != RegistryFile::Kind::None)
      return target->Set(opened->path, name, std::nullopt);
    return target->Remove(opened->path, name) && (target == &user_ || DropOverlay(*opened, name));
  });
}

void SqliteRegistry::BeginBatch(RegistryBatch kind) {
  RenewPatience();
  Begin(kind);
}

void SqliteRegistry::EndBatch() {
  End();
  CloseIfUnused();
}

const SqliteRegistry::Key* SqliteRegistry::Find(RegistryKey key) const {
  const auto found = open_.find(key);
  return found == open_.end() ? nullptr : &found->second;
}

bool SqliteRegistry::Exists(const Key& key) {
  return user_.HasKey(key.path) ||
         (key.root == RegistryRoot::HKEY_LOCAL_MACHINE && machine_.HasKey(key.path));
}

RegistryKey SqliteRegistry::Opened(const Key& key) {
  if (open_.empty() && !batch_) RenewPatience();
  open_.emplace(++lastKey_, key);
  return lastKey_;
}

RegistryFile::Value SqliteRegistry::Get(const Key& key, const std::string& name) {
  RegistryFile::Value value = user_.Get(key.path, name);
  if (value.kind != RegistryFile::Kind::None || key.root == RegistryRoot::HKEY_CURRENT_USER)
    return value;
  return machine_.Get(key.path, name);
}

template <typename Step>
bool SqliteRegistry::Write(Step step) {
  if (batch_ == RegistryBatch::Read) return false;
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

bool SqliteRegistry::DropOverlay(const Key& key, const std::string& name) {
  if (user_.Get(key.path, name).kind == RegistryFile::Kind::None) return true;
  return user_.CanWrite() && user_.Remove(key.path, name);
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

void SqliteRegistry::RenewPatience() {
  machinePatience_.Renew();
  userPatience_.Renew();
}

void SqliteRegistry::CloseIfUnused() {
  if (batch_ || !open_.empty()) return;
  machine_.Close();
  user_.Close();
}

}  // namespace sentrel
