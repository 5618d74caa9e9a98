#pragma once

#include <string>

namespace sentrel {

/// By what the program is known to the user and to the services that it calls.
struct ProgramIdentity {
  /// Names the program in message boxes and in documents.
  std::string fileDescription = "Sentrel";
  int majorVersion = 9;
  int minorVersion = 2;
  int revision = 47;
};

}  // namespace sentrel
