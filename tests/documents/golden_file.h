#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "fakes/shell.h"

namespace sentrel {

/// Expects a text to be that of a file of tests/data/export. With SENTREL_NEW_GOLDEN set in the
/// environment the file is written instead, to be looked at before it is committed.
inline void ExpectGolden(const std::string& text, const std::string& name) {
  const std::string path = std::string(TEST_DATA) + "/export/" + name;
  if (!std::getenv("SENTREL_NEW_GOLDEN")) {
    EXPECT_EQ(text, ReadFile(path)) << path;
    return;
  }
  std::ofstream(path, std::ios::binary) << text;
  ADD_FAILURE() << "wrote " << path;
}

}  // namespace sentrel
