#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/mib_facts.h"

namespace sentrel {

/// One object of an index, as part of the numbers that name an instance.
struct IndexPart {
  /// Of the list that was given.
  const NodeFacts* object = nullptr;
  /// The numbers that are its value: the octets of a string, without the length in front of them.
  std::span<const std::uint32_t> numbers;
};

/// Takes the numbers that name an instance of a row apart by the row's INDEX (RFC 2578, section
/// 7.7). The database does not tell which strings are of fixed length or IMPLIED: the parts must
/// fit the numbers exactly, and a string has its length in front where that fits. Empty where
/// nothing fits. The parts point into both arguments.
std::vector<IndexPart> IndexParts(std::span<const NodeFacts> indexes,
                                  std::span<const std::uint32_t> numbers);

}  // namespace sentrel
