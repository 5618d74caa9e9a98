#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "trap/security_level.h"

namespace sentrel {

/// RFC 3414 and RFC 7860.
enum class Authentication { kNone, kMd5, kSha1, kSha224, kSha256, kSha384, kSha512 };

/// RFC 3414 and RFC 3826; the longer keys of AES are in no RFC, and are extended in one of two
/// ways: as draft-blumenthal-aes-usm-04 tells, or (C) as draft-reeder-snmpv3-usm-3desede-00.
enum class Privacy { kNone, kDes, kAes128, kAes192, kAes256, kAes192C, kAes256C };

/// A user of version 3, without keys.
struct Version3User {
  /// 1 to 32 octets (RFC 3414, section 2.4), UTF-8.
  std::string name;
  /// What the user's messages must have at least.
  SecurityLevel leastLevel = SecurityLevel::kAuthPriv;
  Authentication authentication = Authentication::kNone;
  Privacy privacy = Privacy::kNone;
  /// The bytes of an engine ID, 5 to 32; empty stands for any engine whose messages have a right
  /// digest.
  std::string engine;
  /// Of this run, where the user was heard.
  std::optional<std::chrono::system_clock::time_point> lastHeard;
  /// From a createUser line of a file that people write: to be changed there.
  bool isFromFile = false;

  bool operator==(const Version3User&) const = default;
};

/// A user as the dialog gives it back.
struct Version3UserEntry {
  Version3User user;
  /// Eight octets or more each (RFC 3414, section 11.2). Empty keeps the key that the user of the
  /// same name and engine has, for the same protocol.
  std::string authPassphrase;
  std::string privPassphrase;
};

/// The users of version 3 that the listener knows. Called on the event loop.
class Version3UserStore {
 public:
  virtual ~Version3UserStore() = default;
  /// Throws Failure where they cannot be read: the list is unknown then, not empty.
  virtual std::vector<Version3User> Users() const = 0;
  /// Replaces all users that are not from a file, from the next message on, and keeps them. Throws
  /// Failure with a sentence for people where they cannot be kept; nothing has changed then.
  virtual void Replace(const std::vector<Version3UserEntry>& users) = 0;
  /// Forgets the boots and the time that the engine has told: for a device that was replaced or
  /// reset. Throws Failure.
  virtual void ForgetEngine(const std::string& engine) = 0;
};

}  // namespace sentrel
