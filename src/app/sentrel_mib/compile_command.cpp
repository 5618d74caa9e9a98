#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <mutex>
#include <optional>
#include <stdexcept>

#include "commands.h"
#include "common/atomic_file.h"
#include "common/failure.h"
#include "mib/collection.h"
#include "mib/image_writer.h"
#include "surroundings.h"

namespace sentrel::app {
namespace {

/// Tells on a terminal how far the work has come, once it takes a while.
class Progress {
 public:
  explicit Progress(std::ostream& out) : out_(out), onTerminal_(isatty(STDERR_FILENO) == 1) {}
  ~Progress() {
    if (shown_) out_ << "\r\033[K" << std::flush;
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Show(size_t done, size_t all) {
    const std::lock_guard lock(mutex_);
    const auto now = Clock::now();
    if (!onTerminal_ || now < next_) return;
    next_ = now + std::chrono::milliseconds(100);
    shown_ = true;
    out_ << '\r' << done << " of " << all << " files" << std::flush;
  }

 private:
  using Clock = std::chrono::steady_clock;

  std::ostream& out_;
  const bool onTerminal_;
  std::mutex mutex_;
  bool shown_ = false;
  Clock::time_point next_ = Clock::now() + std::chrono::milliseconds(500);
};

void Print(const mib::Messages& messages) {
  for (const mib::Message& message : messages) std::cout << message.ToText() << '\n';
}

size_t CountNames(const mib::Catalog& catalog) {
  return static_cast<size_t>(
      std::count_if(catalog.names.begin(), catalog.names.end(),
                    [](std::uint32_t entry) { return entry != mib::kNothing; }));
}

mib::Collection ReadWithProgress(std::vector<std::string> files) {
  Progress progress(std::cerr);
  mib::ReadOptions options;
  options.progress = [&](size_t done, size_t all) { progress.Show(done, all); };
  return {std::move(files), options};
}

/// What a compilation has built up goes with the process: to free it piece by piece takes longer.
[[noreturn]] void End(int status) {
  std::cout.flush();
  _exit(status);
}

int CheckBuiltIn() {
  try {
    mib::Image::Open(BuiltInPath());
    return 0;
  } catch (const Failure& failure) {
    std::cout << BuiltInPath() << ": " << failure.what() << '\n';
    return 1;
  }
}

}  // namespace

int CompileFolders(const Arguments& arguments) {
  if (arguments.rest.empty()) throw std::invalid_argument("compile needs a folder");
  mib::Sources sources = mib::FindSources(FoldersOf(arguments.rest));
  const size_t files = sources.files.size();
  mib::Collection collection = ReadWithProgress(std::move(sources.files));
  const auto base = BuiltInDatabase();
  std::optional<AtomicFile> image;
  if (!arguments.output.empty()) {
    MakeFolderFor(arguments.output);
    image.emplace(arguments.output).Prepare(collection.ImageSizeEstimate());
  }
  const mib::Catalog catalog = collection.Compile(*base);
  Print(sources.messages);
  Print(collection.AllMessages());
  std::cout << files << " files, " << collection.ModuleCount() << " modules, "
            << CountNames(catalog) << " names, "
            << sources.messages.size() + collection.AllMessages().size() << " messages\n";
  if (image)
    image->Write(mib::MakeImage(catalog, sources.fingerprint), AtomicFile::SafeFrom::Crash);
  End(collection.ModuleCount() > 0 ? 0 : 1);
}

int CheckFiles(const Arguments& arguments) {
  if (arguments.rest.empty()) return CheckBuiltIn();
  mib::Collection collection(arguments.rest, {});
  const auto base = ProgramDatabase(mib::DamageCheck::AtOnce);
  collection.Compile(*base);
  Print(collection.AllMessages());
  return collection.AllMessages().empty() ? 0 : 1;
}

}  // namespace sentrel::app
