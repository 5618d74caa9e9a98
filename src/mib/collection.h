#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "mib/arena.h"
#include "mib/catalog.h"
#include "mib/database.h"
#include "mib/message.h"
#include "mib/module.h"
#include "mib/smi_parser.h"

namespace sentrel::mib {

/// How a collection is read.
struct ReadOptions {
  /// Reads the modules of one file: ParseSmi or ParseFacts.
  ParsedFile (*parse)(std::string_view text, Arena& arena) = ParseSmi;
  /// Told, from any thread, how many of the files are done.
  std::function<void(size_t done, size_t all)> progress;
  /// When set to true from another thread, reading ends early and its result is void.
  const std::atomic<bool>* stop = nullptr;
};

/// All modules of a list of files.
class Collection {
 public:
  /// Reads the files on all processors. Of modules of one name the newest one wins, then the one
  /// that defines most, then the first. A file that cannot be read, or is larger than 32 megabytes,
  /// is passed over with a message.
  Collection(std::vector<std::string> files, const ReadOptions& options);

  /// Resolves everything over the base; adds what is wrong to the messages. Called once. The
  /// catalog refers to the collection and to the base. Throws Failure where it meets damage in the
  /// base.
  Catalog Compile(const Database& base);

  /// Sorted by file, in the order of the list, and by line.
  const Messages& AllMessages() const { return messages_; }
  size_t ModuleCount() const { return modules_.size(); }
  /// About how many bytes an image of the modules takes. Called before Compile.
  size_t ImageSizeEstimate() const;

 private:
  void Adopt(std::vector<ParsedFile>& parsed);
  void Report(std::uint32_t file, Message message);
  void SortMessages();

  std::vector<std::string> files_;
  std::deque<Arena> arenas_;
  std::vector<Module> modules_;
  Messages messages_;
};

}  // namespace sentrel::mib
