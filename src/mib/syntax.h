#pragma once

#include "mib/module.h"
#include "mib/token_reader.h"

namespace sentrel::mib {

/// Reads a type as written after SYNTAX or "::=" (RFC 2578 section 7.1): its base type or the
/// type it names, and its named values. What cannot be understood is reported and passed over.
void ReadType(TokenReader& reader, ModuleDraft& module, DraftDefinition& definition);

/// Reads the value of an OBJECT IDENTIFIER, "{ parent 1 2 }", or without braces the name of its
/// twin. Labels given in passing become definitions of their own, before the definition itself.
/// False, with a message, when there is none.
bool ReadOid(TokenReader& reader, ModuleDraft& module, DraftDefinition& definition);

/// The base type that a name of the SMI itself stands for; None for any other name.
BaseType BaseTypeOf(Keyword name);

/// Reads a number of 32 bits: -1 stands for 4294967295 only where `allowNegative`. False when the
/// text does not fit.
bool ReadNumber(std::string_view text, bool allowNegative, std::int64_t& number);

}  // namespace sentrel::mib
