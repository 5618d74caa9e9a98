#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace sentrel::test {

/// A child process, ended with the object.
class Process {
 public:
  /// The environment is that of this process, with `environment` (NAME=value) in front.
  explicit Process(const std::vector<std::string>& command,
                   const std::vector<std::string>& environment = {});
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  pid_t Id() const { return id_; }
  bool Running();
  /// Waits for the end. Returns the exit code, or 128 and the signal.
  int Wait();

 private:
  pid_t id_ = 0;
  int status_ = 0;
  bool ended_ = false;
};

/// Runs a command to its end and returns its exit code.
int RunCommand(const std::vector<std::string>& command,
               const std::vector<std::string>& environment = {});

}  // namespace sentrel::test
