#pragma once

#include <string_view>
#include <vector>

#include "mib/arena.h"
#include "mib/message.h"
#include "mib/module.h"

namespace sentrel::mib {

/// What one file holds. The modules' file numbers and the messages' file names are left unset.
struct ParsedFile {
  std::vector<Module> modules;
  Messages messages;
};

/// Reads every SMI module (SMIv1 and SMIv2, RFC 1155, 1212, 1215, 2578 to 2580) in the text of a
/// file. Accepts any bytes: what cannot be understood is passed over with a message, and all that
/// can be is kept. Time and memory are linear in the size of the text.
ParsedFile ParseSmi(std::string_view text, Arena& arena);

}  // namespace sentrel::mib
