#include "details/index_parts.h"

#include <gtest/gtest.h>

namespace sentrel {
namespace {

using Numbers = std::vector<std::uint32_t>;

NodeFacts Object(ValueBase base, const char* hint = "") {
  return {.name = "", .module = "", .oid = {}, .base = base, .hint = hint, .units = ""};
}

TEST(IndexParts, FitTheNumbersExactly) {
  const NodeFacts number = Object(ValueBase::kInteger);
  const NodeFacts text = Object(ValueBase::kOctets, "255a");
  const NodeFacts mac = Object(ValueBase::kOctets, "1x:");
  const NodeFacts address = Object(ValueBase::kIpAddress);
  const NodeFacts oid = Object(ValueBase::kOid);
  const struct {
    const char* what;
    std::vector<NodeFacts> objects;
    Numbers numbers;
    std::vector<Numbers> parts;
  } cases[] = {
      {"one number", {number}, {7}, {{7}}},
      {"too many numbers", {number}, {7, 8}, {}},
      {"no numbers", {number}, {}, {}},
      {"no objects", {}, {7}, {}},
      {"numbers", {number, number}, {7, 4294967295}, {{7}, {4294967295}}},
      {"a string with its length", {text, number}, {2, 97, 98, 5}, {{97, 98}, {5}}},
      {"an empty string", {text, number}, {0, 5}, {{}, {5}}},
      {"an implied string at the end", {number, text}, {5, 97, 98}, {{5}, {97, 98}}},
      {"a length that fits is a length", {text}, {2, 97, 98}, {{97, 98}}},
      {"no octet", {text}, {1, 256}, {}},
      {"a length beyond the end", {text, number}, {200, 97, 98, 5}, {}},
      {"a fixed MAC address", {number, mac}, {5, 0, 26, 43, 1, 2, 3}, {{5}, {0, 26, 43, 1, 2, 3}}},
      {"one that looks like a length", {mac}, {5, 26, 43, 1, 2, 3}, {{5, 26, 43, 1, 2, 3}}},
      {"one in the middle", {mac, number}, {0, 26, 43, 1, 2, 3, 9}, {{0, 26, 43, 1, 2, 3}, {9}}},
      {"a MAC address with its length", {mac}, {6, 0, 1, 2, 3, 4, 5}, {{0, 1, 2, 3, 4, 5}}},
      {"an address", {address, number}, {192, 0, 2, 7, 80}, {{192, 0, 2, 7}, {80}}},
      {"no address", {address}, {192, 0, 2, 256}, {}},
      {"an OID with its length", {oid, number}, {2, 1, 3, 9}, {{1, 3}, {9}}},
      {"an implied OID", {oid}, {1, 3, 6, 1000}, {{1, 3, 6, 1000}}},
  };
  for (const auto& [what, objects, numbers, expected] : cases) {
    std::vector<Numbers> parts;
    for (const IndexPart& part : IndexParts(objects, numbers)) {
      parts.emplace_back(part.numbers.begin(), part.numbers.end());
    }
    EXPECT_EQ(parts, expected) << what;
  }
}

TEST(IndexParts, OfManyStringsTakeNoLonger) {
  const std::vector<NodeFacts> objects(32, Object(ValueBase::kOctets, "1x:"));
  Numbers numbers(128, 1);
  numbers.back() = 1'000;  // no octet
  EXPECT_TRUE(IndexParts(objects, numbers).empty());
  EXPECT_TRUE(IndexParts(std::vector(33, Object(ValueBase::kInteger)), Numbers(33, 1)).empty());
}

}  // namespace
}  // namespace sentrel
