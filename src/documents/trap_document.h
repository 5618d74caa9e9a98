#pragma once

#include <string>

#include "platform/trap_writer.h"

namespace sentrel {

/// A saved trap as one JSON document (docs/saved-trap.md), in which every character can be seen.
/// Throws Failure where a text is not UTF-8.
std::string TrapDocument(const SavedTrap& trap);

/// Writes saved traps as JSON documents.
class TrapDocumentWriter : public TrapWriter {
 public:
  void Write(const std::string& fileName, const SavedTrap& trap) override;
};

}  // namespace sentrel
