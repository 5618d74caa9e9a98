#pragma once

#include <map>
#include <string>

#include "common/failure.h"
#include "platform/oid_object.h"

namespace sentrel {

/// A MIB database of a few entries, whose operations fail on demand. A text without an entry is
/// its own name.
class FakeMibLibrary : public MibLibrary {
 public:
  struct Entry {
    std::string name;
    std::map<std::int32_t, std::string> values;  // number to text, "down(2)"
  };

  std::shared_ptr<OIDObject> MakeOIDObject() override {
    if (failing == "MakeOIDObject") throw Failure(failing);
    ++made;
    return std::make_shared<Object>(*this);
  }

  std::map<std::string, Entry> entries;
  /// The operation that fails, and the OID on which it does; empty for all.
  std::string failing;
  std::string failingOid;
  int made = 0;

 private:
  class Object : public OIDObject {
   public:
    explicit Object(const FakeMibLibrary& library) : library_(library) {}
    void SetOID(const std::string& oid) override {
      oid_ = oid;
      const auto found = library_.entries.find(oid);
      if (found != library_.entries.end()) entry_ = found->second;
      if (entry_.name.empty()) entry_.name = oid;
      for (const auto& [number, text] : entry_.values) list_ += text;
      FailOn("SetOID");
    }
    const std::string& Name() const override { return FailOn("Name"), entry_.name; }
    const std::string& EnumerationList() const override { return FailOn("EnumerationList"), list_; }
    std::string EnumerationName(std::int32_t number) const override {
      FailOn("EnumerationName");
      const auto found = entry_.values.find(number);
      return found == entry_.values.end() ? "unknown(0)" : found->second;
    }

   private:
    void FailOn(const std::string& operation) const {
      const bool here = library_.failingOid.empty() || library_.failingOid == oid_;
      if (library_.failing == operation && here) throw Failure(operation);
    }

    const FakeMibLibrary& library_;
    std::string oid_;
    Entry entry_;
    std::string list_;
  };
};

}  // namespace sentrel
