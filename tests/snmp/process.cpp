#include "process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace sentrel::test {
namespace {

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size());
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  return pointers;
}

int ExitCode(int status) {
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

Process::Process(const std::vector<std::string>& command,
                 const std::vector<std::string>& environment) {
  std::vector<char*> arguments = Pointers(command);
  arguments.push_back(nullptr);
  std::vector<char*> variables = Pointers(environment);
  for (char** variable = environ; *variable != nullptr; ++variable) variables.push_back(*variable);
  variables.push_back(nullptr);
  if (posix_spawnp(&id_, arguments[0], nullptr, nullptr, arguments.data(), variables.data()) != 0) {
    throw std::runtime_error("cannot start " + command[0]);
  }
}

Process::~Process() {
  if (Running()) {
    kill(id_, SIGKILL);
    Wait();
  }
}

bool Process::Running() {
  if (!ended_) ended_ = waitpid(id_, &status_, WNOHANG) == id_;
  return !ended_;
}

int Process::Wait() {
  if (!ended_) ended_ = waitpid(id_, &status_, 0) == id_;
  return ExitCode(status_);
}

int RunCommand(const std::vector<std::string>& command,
               const std::vector<std::string>& environment) {
  return Process(command, environment).Wait();
}

}  // namespace sentrel::test
