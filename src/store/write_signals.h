#pragma once

#include <csignal>

namespace sentrel {

/// For the whole process, for good: a write beyond the file size limit, or into a pipe without a
/// reader, only fails, as every other write does. For the start of a program.
inline void IgnoreWriteSignals() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace sentrel
