#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/trap_writer.h"

namespace sentrel {

/// The variable bindings of a trap object, in order, as three parallel lists.
class VarBinds {
 public:
  /// Appends a binding. The type code is the tag byte of the value; one that does not fit 16 bits
  /// is refused with a Failure.
  void AddVarBind(const std::string& oid, std::int32_t typeCode, const std::string& value);

  const std::vector<std::string>& OIDList() const { return oidList_; }
  const std::vector<std::string>& ValueList() const { return valueList_; }
  const std::vector<std::int16_t>& TypeList() const { return typeList_; }

 private:
  std::vector<std::string> oidList_;
  std::vector<std::string> valueList_;
  std::vector<std::int16_t> typeList_;
};

/// A trap on its way out: to a host or to a file.
class TrapObject {
 public:
  void SetStationText1(const std::string& text) { stationText1_ = text; }
  void SetStationText2(const std::string& text) { stationText2_ = text; }
  void SetSourceIP(const std::string& address) { sourceIP_ = address; }
  void SetTrapCommunity(const std::string& community) { trapCommunity_ = community; }
  /// The one live list.
  sentrel::VarBinds& VarBinds() { return varBinds_; }
  const sentrel::VarBinds& VarBinds() const { return varBinds_; }

  /// Throws Failure where the file cannot be written.
  void SaveToFile(const std::string& fileName, TrapWriter& writer) const;

 private:
  std::string stationText1_;
  std::string stationText2_;
  std::string sourceIP_;
  std::string trapCommunity_;
  sentrel::VarBinds varBinds_;
};

}  // namespace sentrel
