#include "process_time.h"

#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <limits>
#include <string>

namespace sentrel::bench {

double OwnSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double SecondsOf(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  // The name in parentheses may hold anything; eleven fields lie between it and the times.
  file.ignore(std::numeric_limits<std::streamsize>::max(), ')');
  std::string skipped;
  for (int i = 0; i < 11; ++i) file >> skipped;
  double user = 0;
  double system = 0;
  file >> user >> system;
  return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

std::uint64_t OwnMemory() {
  std::ifstream file("/proc/self/statm");
  std::uint64_t whole = 0;
  std::uint64_t resident = 0;
  file >> whole >> resident;
  return resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace sentrel::bench
