#include "sending/trap_object.h"

#include <utility>

#include "common/failure.h"

namespace sentrel {

void VarBinds::AddVarBind(const std::string& oid, std::int32_t typeCode, const std::string& value) {
  if (!std::in_range<std::int16_t>(typeCode)) throw Failure("There is no such type code.");
  oidList_.push_back(oid);
  valueList_.push_back(value);
  typeList_.push_back(static_cast<std::int16_t>(typeCode));
}

void TrapObject::SaveToFile(const std::string& fileName, TrapWriter& writer) const {
  writer.Write(fileName, {.StationText1 = stationText1_,
                          .StationText2 = stationText2_,
                          .SourceIP = sourceIP_,
                          .TrapCommunity = trapCommunity_,
                          .OIDs = varBinds_.OIDList(),
                          .DataTypes = varBinds_.TypeList(),
                          .Values = varBinds_.ValueList()});
}

}  // namespace sentrel
