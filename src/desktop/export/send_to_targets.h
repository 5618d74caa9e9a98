#pragma once

#include <string>
#include <vector>

#include "platform/export_backend.h"

namespace sentrel {

/// The places that a file can be sent to.
std::vector<ExportChoice> SendTargets();

/// Hands a file to a target: a key of SendTargets, or the path of a program. Each goes through the
/// desktop's own tools, which answer for themselves from then on. Throws Failure where there is no
/// such tool, or no program that would take the file.
void SendFile(const std::string& filename, const std::string& target, const std::string& title);

/// Opens a file in the program that the desktop has for its kind. Throws Failure.
void OpenFile(const std::string& filename);

}  // namespace sentrel
