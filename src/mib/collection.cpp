#include "mib/collection.h"

#include <algorithm>
#include <thread>
#include <unordered_map>

#include "common/failure.h"
#include "mib/resolver.h"
#include "mib/source_text.h"
#include "mib/token_reader.h"

namespace sentrel::mib {
namespace {

ParsedFile ParseOne(const std::string& path, const ReadOptions& options, SourceText& text,
                    Arena& arena) {
  try {
    text.Load(path);
  } catch (const Failure& failure) {
    return {{}, {{path, 0, failure.what()}}};
  }
  ParsedFile file = options.parse(text.Bytes(), arena);
  for (Message& message : file.messages) message.file = path;
  return file;
}

/// Reads the files on as many threads as there are processors, each with an arena of its own.
std::vector<ParsedFile> ParseAll(const std::vector<std::string>& files, const ReadOptions& options,
                                 std::deque<Arena>& arenas) {
  std::vector<ParsedFile> parsed(files.size());
  std::atomic<size_t> next = 0;
  std::atomic<size_t> done = 0;
  const auto work = [&](Arena& arena) {
    SourceText text;
    for (size_t i = next++; i < files.size(); i = next++) {
      if (options.stop != nullptr && *options.stop) return;
      parsed[i] = ParseOne(files[i], options, text, arena);
      ++done;
      if (options.progress) options.progress(done, files.size());
    }
  };
  const size_t processors = std::clamp<size_t>(std::thread::hardware_concurrency(), 1, 8);
  const size_t helpers = std::min(processors, files.size() / 16 + 1) - 1;
  std::vector<std::jthread> threads;
  for (size_t i = 0; i < helpers; ++i) {
    threads.emplace_back([&work, &arena = arenas.emplace_back()] { work(arena); });
  }
  work(arenas.emplace_back());
  threads.clear();
  return parsed;
}

/// Of two modules of one name: the newer one, or else the one that tells more.
bool IsBetter(const Module& module, const Module& other) {
  return std::pair(module.lastUpdated, module.definitions.size()) >
         std::pair(other.lastUpdated, other.definitions.size());
}

}  // namespace

Collection::Collection(std::vector<std::string> files, const ReadOptions& options)
    : files_(std::move(files)) {
  auto parsed = ParseAll(files_, options, arenas_);
  for (ParsedFile& file : parsed) {
    std::move(file.messages.begin(), file.messages.end(), std::back_inserter(messages_));
  }
  Adopt(parsed);
}

/// Keeps the best module of each name.
void Collection::Adopt(std::vector<ParsedFile>& parsed) {
  std::unordered_map<std::string_view, size_t> byName;
  for (std::uint32_t f = 0; f < parsed.size(); ++f) {
    for (Module& module : parsed[f].modules) {
      module.file = f;
      const auto [known, isNew] = byName.emplace(module.name, modules_.size());
      if (isNew) {
        modules_.push_back(module);
        continue;
      }
      Module& other = modules_[known->second];
      if (IsBetter(module, other)) std::swap(module, other);
      Report(module.file, {{},
                           module.line,
                           "module " + Quote(module.name) + " is left out: that of " +
                               files_[other.file] + " is used"});
    }
  }
}

Catalog Collection::Compile(const Database& base) {
  std::vector<FileMessage> found;
  Catalog catalog = Resolve(modules_, base, found);
  for (auto& [file, message] : found) Report(file, std::move(message));
  SortMessages();
  // The catalog refers to texts and named values alone.
  for (Arena& arena : arenas_) arena.DropLent();
  return catalog;
}

size_t Collection::ImageSizeEstimate() const {
  constexpr size_t kRecords = sizeof(format::NodeRecord) + sizeof(format::EntryRecord);
  constexpr size_t kTexts = 30;
  size_t names = 0;
  for (const Module& module : modules_) names += module.definitions.size();
  return names * (kRecords + kTexts);
}

void Collection::Report(std::uint32_t file, Message message) {
  message.file = files_[file];
  messages_.push_back(std::move(message));
}

void Collection::SortMessages() {
  std::unordered_map<std::string_view, size_t> place;
  for (size_t i = 0; i < files_.size(); ++i) place.emplace(files_[i], i);
  std::stable_sort(messages_.begin(), messages_.end(), [&](const Message& a, const Message& b) {
    if (a.file != b.file) return place[a.file] < place[b.file];
    return a.line < b.line;
  });
}

}  // namespace sentrel::mib
