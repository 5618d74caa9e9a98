#include "details/byte_lines.h"

#include <gtest/gtest.h>

namespace sentrel {
namespace {

TEST(ByteLines, ShowOffsetDigitsAndText) {
  EXPECT_EQ(ByteLines(""), "");
  EXPECT_EQ(ByteLines("0\x82 public\x7f\xff----+----1"),
            "0000  30 82 20 70 75 62 6c 69 63 7f ff 2d 2d 2d 2d 2b  0. public..----+\n"
            "0010  2d 2d 2d 2d 31                                   ----1           ");
}

TEST(ByteLines, EachPlaceLeadsToItsByte) {
  const std::string bytes(40, 'x');
  const std::string lines = ByteLines(bytes);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    EXPECT_EQ(lines.substr(DigitsOf(i), 2), "78");
    EXPECT_EQ(lines[CharacterOf(i)], 'x');
    for (const std::size_t place : {DigitsOf(i), DigitsOf(i) + 1, CharacterOf(i)}) {
      EXPECT_EQ(ByteAt(place), i);
    }
  }
  EXPECT_EQ(ByteAt(3), std::nullopt) << "the offset is no byte";
  EXPECT_EQ(ByteAt(CharacterOf(15) + 1), 15U) << "the end of a line is its last byte";
}

}  // namespace
}  // namespace sentrel
