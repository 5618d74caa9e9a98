#pragma once

#include <string>
#include <string_view>

namespace sentrel::mib {

/// Writes a file so that a reader finds either the old one or the whole new one, whatever happens
/// meanwhile. Makes the folder if need be. Throws Failure.
void WriteWhole(const std::string& path, std::string_view bytes);

}  // namespace sentrel::mib
