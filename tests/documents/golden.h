#pragma once

#include <string>

namespace sentrel {

/// Expects the text to be that of a file of tests/data/export. With SENTREL_NEW_GOLDEN set in the
/// environment the file is written instead, to be looked at before it is committed.
void ExpectGolden(const std::string& name, const std::string& text);

}  // namespace sentrel
