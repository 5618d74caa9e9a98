#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/oid_object.h"
#include "query/subject.h"
#include "trap/arrived_trap.h"

namespace sentrel::query {

/// Names of OIDs for queries, from the MIB database itself, so that the cache of the table's rows
/// is not touched. Used on the event loop only.
class Names {
 public:
  /// Where so many OIDs are known, all are forgotten.
  static constexpr std::size_t kMostKept = 20'000;

  /// Must outlive this.
  explicit Names(MibLibrary& mibs) : mibs_(mibs) {}

  /// Null where the library fails. Good until the next call.
  const OIDObject* Find(const std::string& oid);
  /// The name of an OID; the OID itself where the library fails.
  std::string NameOf(const std::string& oid);
  /// The MIB database has changed.
  void Forget() { objects_.clear(); }

 private:
  MibLibrary& mibs_;
  std::unordered_map<std::string, std::shared_ptr<OIDObject>> objects_;
};

/// A trap as it arrived. It is read, and named, when a query first asks for more than its envelope.
class TrapSubject : public Subject {
 public:
  /// Both must outlive the subject.
  TrapSubject(const ArrivedTrap& trap, Names& names) : trap_(trap), names_(names) {}

  std::string_view Sender() const override { return trap_.SourceAddress(); }
  std::string_view Community() const override { return trap_.Community(); }
  const TrapEnvelope& Envelope() const override { return trap_.Envelope(); }
  std::string_view NotificationOid() const override { return Read().notificationOid; }
  std::string_view NotificationName() const override;
  std::string_view DeviceType() const override;
  std::span<const NamedValue> Bindings() const override;

 private:
  struct Content {
    Trap trap;
    std::string notificationOid;
    std::string enterpriseOid;
  };
  const Content& Read() const;
  NamedValue Named(std::size_t binding) const;

  const ArrivedTrap& trap_;
  Names& names_;
  mutable std::optional<Content> content_;
  mutable std::optional<std::string> notificationName_;
  mutable std::optional<std::string> deviceType_;
  mutable std::optional<std::vector<NamedValue>> bindings_;
};

}  // namespace sentrel::query
