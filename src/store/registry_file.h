#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/registry.h"
#include "store/database.h"
#include "store/standing.h"

namespace sentrel {

/// Who may read a file that is made here. Nobody but its owner may ever write it.
enum class Audience { Everybody, OwnerOnly };

/// Keys and values in one SQLite file. Key paths begin with the name of their root. A file that is
/// missing or in other hands holds nothing; of one that is busy, damaged or out of reach nobody
/// knows what it holds. None of them takes anything; nothing here throws. A damaged file is set
/// aside when it is opened for whoever may write it, and then holds nothing. For one thread at a
/// time; other processes may use the file at the same time.
class RegistryFile {
 public:
  /// Clock and patience must outlive the file.
  RegistryFile(std::filesystem::path path, Audience audience, const Clock& clock,
               const Patience& patience);
  ~RegistryFile() { Close(); }
  RegistryFile(const RegistryFile&) = delete;
  RegistryFile& operator=(const RegistryFile&) = delete;

  /// A value that is larger than any option, a megabyte, is of another type.
  enum class Kind { None, Text, OtherType, Deleted, Unreadable };
  struct Value {
    Kind kind = Kind::None;
    std::string text;
  };

  /// Nothing where it cannot be read.
  std::optional<bool> HasKey(const std::string& key);
  /// Whether the key has an entry of a list: a value, or a mark of deletion, with a number for a
  /// name. Nothing where it cannot be read.
  std::optional<bool> HasEntries(const std::string& key);
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
  bool RemoveEntries(const std::string& key);
  /// False where what was written is lost.
  bool Commit();
  void Rollback();

  void Close();

 private:
  /// What the open file answers: a value of nothing where there is no file, nothing where it cannot
  /// be read.
  template <typename Question>
  auto Ask(Question question);
  /// False where there is no file to be obeyed.
  bool Open();
  std::unique_ptr<Database> OpenSound() const;
  bool Make();
  bool IsWritable() const;
  void EndTransaction();

  std::filesystem::path path_;
  Audience audience_;
  const Clock& clock_;
  const Patience& patience_;
  std::unique_ptr<Database> db_;
  /// As found by the last look; kept until the file is closed.
  std::optional<Standing> standing_;
  bool hasKeys_ = false;
  bool hasOptions_ = false;
  std::optional<RegistryBatch> batch_;
  /// A transaction of writes is open.
  bool writing_ = false;
};

}  // namespace sentrel
