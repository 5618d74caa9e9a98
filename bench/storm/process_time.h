#pragma once

#include <sys/types.h>

#include <cstdint>

namespace sentrel::bench {

/// Seconds of processor time that this process has used so far, in all its threads.
double OwnSeconds();

/// The same of another process that runs, in steps of 10 ms.
double SecondsOf(pid_t process);

/// Bytes of memory that this process keeps resident.
std::uint64_t OwnMemory();

}  // namespace sentrel::bench
