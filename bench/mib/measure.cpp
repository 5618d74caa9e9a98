// measure PROGRAM [ARGUMENT]...: runs a program and prints the microseconds from its start to its
// end, those that the processors worked for it, and the most kilobytes that it took. What the
// program prints is dropped.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

long long Microseconds(const timeval& time) {
  return time.tv_sec * 1'000'000LL + time.tv_usec;
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) return 2;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
  }
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  int status = 0;
  rusage usage{};
  if (posix_spawnp(&child, words[1], &actions, nullptr, words + 1, environ) != 0 ||
      wait4(child, &status, 0, &usage) != child) {
    std::perror(words[1]);
    return 1;
  }
  const std::chrono::duration<double, std::micro> wall = std::chrono::steady_clock::now() - start;
  std::printf("%.0f %lld %ld\n", wall.count(),
              Microseconds(usage.ru_utime) + Microseconds(usage.ru_stime), usage.ru_maxrss);
  return 0;
}
