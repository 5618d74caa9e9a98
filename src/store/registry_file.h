#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/registry.h"
#include "store/database.h"

namespace sentrel {

/// Who may read a file that is made here. Nobody but its owner may ever write it.
enum class Audience { Everybody, OwnerOnly };

/// Keys and values in one SQLite file. Key paths begin with the name of their root. A file that is
/// missing, busy, damaged or out of reach holds nothing and takes nothing; nothing here throws. A
/// damaged file is set aside when it is opened.
class RegistryFile {
 public:
  /// Clock and patience must outlive the file.
  RegistryFile(std::filesystem::path path, Audience audience, const Clock& clock,
               const Patience& patience);
  ~RegistryFile() { Close(); }
  RegistryFile(const RegistryFile&) = delete;
  RegistryFile& operator=(const RegistryFile&) = delete;

  enum class Kind { None, Text, OtherType, Deleted };
  struct Value {
    Kind kind = Kind::None;
    std::string text;
  };

  bool HasKey(const std::string& key);
  Value Get(const std::string& key, const std::string& name);

  /// What follows until Commit or Rollback belongs together.
  void Begin(RegistryBatch kind) { batch_ = kind; }
  /// In a batch of writes: takes the file for writing, making folder, file and tables if need be.
  /// False where it cannot be had.
  bool CanWrite();
  /// These three need CanWrite. Makes missing parents too.
  bool MakeKey(const std::string& key);
  /// A text, or the mark that the value counts as deleted whatever another file says.
  bool Set(const std::string& key, const std::string& name, const std::optional<std::string>& text);
  /// A missing value is no fault.
  bool Remove(const std::string& key, const std::string& name);
  /// False where what was written is lost.
  bool Commit();
  void Rollback();

  void Close();

 private:
  bool Open();
  std::unique_ptr<Database> OpenSound() const;
  bool Make() const;
  bool IsWritable() const;
  void EndTransaction();

  std::filesystem::path path_;
  Audience audience_;
  const Clock& clock_;
  const Patience& patience_;
  std::unique_ptr<Database> db_;
  std::optional<RegistryBatch> batch_;
  /// A transaction of writes is open.
  bool writing_ = false;
};

}  // namespace sentrel
