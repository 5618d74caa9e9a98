#include "golden.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace sentrel {

void ExpectGolden(const std::string& name, const std::string& text) {
  const std::string path = std::string(TEST_DATA) + "/export/" + name;
  if (std::getenv("SENTREL_NEW_GOLDEN")) {
    std::ofstream(path, std::ios::binary) << text;
    FAIL() << "wrote " << path;
  }
  std::ostringstream golden;
  golden << std::ifstream(path, std::ios::binary).rdbuf();
  EXPECT_EQ(text, golden.str()) << path;
}

}  // namespace sentrel
