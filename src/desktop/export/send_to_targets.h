#pragma once

#include <string>
#include <vector>

#include "platform/export_backend.h"

namespace sentrel {

/// The places that a file can be sent to.
std::vector<ExportChoice> SendTargets();

/// Hands a file to a target: a key of SendTargets, or the path of a program. The desktop's own
/// tools do the work, and report what goes wrong from then on. Throws Failure if there is no such
/// tool, or no program for the file.
void SendFile(const std::string& filename, const std::string& target, const std::string& title);

/// Opens a file in the desktop's program for its kind. Throws Failure.
void OpenFile(const std::string& filename);

}  // namespace sentrel
