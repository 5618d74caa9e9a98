#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "trap/trap.h"

namespace sentrel {

// Whatever the bytes are, all of them is shown. A value that cannot be read is shown as OddText
// gives it, and so does a name. A binding that has no value, or more than one, has itself for a
// value; from where something in the list is no binding, all the rest of the list is the value of
// one binding named "no name".

/// A BindingReader of the content of a list of bindings.
void ReadBindings(std::string_view encoded, Trap& trap);

/// A BindingReader of the content of a version 1 trap's PDU (RFC 1157, section 4.1.6), its six
/// parts of any tag. Gives the bindings that make it a version 2 notification (RFC 3584, section
/// 3.1): sysUpTime.0 and snmpTrapOID.0 in front; behind, where the PDU has none of its own,
/// snmpTrapAddress.0 (if the agent's address is known and is not the source) and
/// snmpTrapEnterprise.0. A PDU whose numbers name no trap has itself for snmpTrapOID.0.
void ReadVersion1Pdu(std::string_view encoded, Trap& trap);

/// The snmpTrapOID.0 that a version 1 trap gets (RFC 3584, section 3.1); nothing where the numbers
/// of its PDU, which is encoded as above, name no trap.
std::optional<std::string> Version1TrapOid(std::string_view encoded);

}  // namespace sentrel
