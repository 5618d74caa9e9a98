#pragma once

#include <string>

namespace sentrel {

/// By what the program is known to the user and to the services that it calls. The numbers come
/// from the build.
struct ProgramIdentity {
  /// Names the program in message boxes and in documents.
  std::string fileDescription = "Sentrel";
  int majorVersion = 0;
  int minorVersion = 0;
  int revision = 0;
};

}  // namespace sentrel
