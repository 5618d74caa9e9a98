#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace sentrel {

/// What the MIB database knows of one OID. Used from the event loop only. An object stays usable,
/// and goes on answering from the database it was made from, when the library has moved on to a
/// newer one or is gone.
class OIDObject {
 public:
  virtual ~OIDObject() = default;

  /// Binds the object to an OID in dotted decimal. Called once, before anything else. No text is
  /// refused: one that is no OID becomes its own name. Throws Failure when the database cannot be
  /// read.
  virtual void SetOID(const std::string& oid) = 0;

  /// The name of the deepest known node and the numbers left over, "sysUpTime.0"; the text given
  /// to SetOID where not even an ancestor is known. Throws Failure.
  virtual const std::string& Name() const = 0;

  /// The named values of the object as "up(1),down(2)", in the order of their numbers; empty
  /// exactly when there are none. BITS have no named values. Throws Failure.
  virtual const std::string& EnumerationList() const = 0;

  /// "down(2)", or exactly "unknown(0)" when the number has no name. Throws Failure.
  virtual std::string EnumerationName(std::int32_t number) const = 0;
};

/// Makes OID objects. It finds its MIB database by itself.
class MibLibrary {
 public:
  virtual ~MibLibrary() = default;
  /// A new object, not yet bound to an OID. Called on the event loop. Throws Failure.
  virtual std::shared_ptr<OIDObject> MakeOIDObject() = 0;
};

}  // namespace sentrel
