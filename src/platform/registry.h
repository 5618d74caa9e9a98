#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace sentrel {

/// The two trees of keys: one for all users of the machine, one for the user of this process.
enum class RegistryRoot { HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER };

/// An open key. Valid until CloseKey, in the registry that gave it.
using RegistryKey = std::uint32_t;

enum class RegistryBatch { Read, PatientRead, Write };

/// A hierarchical store of named values that outlives the process. Keys are named by paths with "\"
/// between the levels; paths and value names ignore the case of ASCII letters. Texts are UTF-8.
///
/// Other processes may use the same store at any time. Called on the event loop. Never throws: a
/// call that fails returns false or nothing. All waiting for other processes from the opening of a
/// key to its closing, or from the beginning of a batch to its end, stays below a second; in a
/// batch of patient reads, which is for what a whole run depends on, below four.
///
/// Unknown is not empty: a key whose values could not be read, although there may be some, is
/// unreachable until a later reading succeeds. It cannot be opened, and what is written to it is
/// forgotten, so that nobody writes over what they have not seen. To open a key outside a batch of
/// writes is to begin to read it.
///
/// Values whose names are whole numbers are the entries of a list, which is one value: where one
/// layer of the store lies over another, a list hides the other's whole.
class Registry {
 public:
  virtual ~Registry() = default;

  /// Opens a key, making it and its missing parents. An empty path fails.
  virtual std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) = 0;
  /// Opens an existing key.
  virtual std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) = 0;
  virtual bool CloseKey(RegistryKey key) = 0;
  /// The whole text of a value. Fails where there is none or where it is of another type.
  virtual std::optional<std::string> QueryStringValue(RegistryKey key, const std::string& name) = 0;
  /// Writes a text value, replacing a value of any type.
  virtual bool SetStringValue(RegistryKey key, const std::string& name,
                              const std::string& text) = 0;
  /// Removes a value of any type. Fails where there is none.
  virtual bool DeleteValue(RegistryKey key, const std::string& name) = 0;

  /// What is done until EndBatch sees one state of the store (Read), or reaches the store as one
  /// durable change, whole or not at all, at the cost of one write (Write). A success inside a
  /// batch of writes is no promise that its end succeeds. Batches do not nest.
  virtual void BeginBatch(RegistryBatch kind) = 0;
  /// Returns false where what was written is lost.
  virtual bool EndBatch() = 0;

  virtual bool IsUnreachable(RegistryRoot root, const std::string& path) const = 0;
};

}  // namespace sentrel
