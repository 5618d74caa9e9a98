#pragma once

#include <string>

#include "documents/progress.h"
#include "documents/table_content.h"

namespace sentrel {

/// Rows whose cells are hard on a file format.
TableContent HardTable();

/// 999 rows as a busy network sends them.
TableContent FullTable();

class NoProgress : public Progress {
 public:
  void Advance(std::size_t, std::size_t) override {}
};

/// Gives up at the third row.
class CancelledEarly : public Progress {
 public:
  void Advance(std::size_t done, std::size_t) override {
    if (done == 2) throw Cancelled();
  }
};

}  // namespace sentrel
