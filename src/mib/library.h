#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "mib/database.h"
#include "mib/image_cache.h"
#include "mib/sources.h"
#include "platform/mib_facts.h"
#include "platform/oid_object.h"

namespace sentrel::mib {

/// Where a library finds its modules.
struct LibrarySetup {
  /// The image of the built-in modules. One that cannot be used counts as an empty one.
  std::string builtInImage;
  /// The folders of the user's own modules; those that come first win. None has to exist.
  std::vector<Folder> folders;
  /// Where the image of the user's modules is kept.
  std::string cacheFile;
  /// How often the folders are looked at for changes; less often where a look takes more than a
  /// fortieth of that, so that it costs no more than a fortieth of a processor.
  std::chrono::milliseconds interval{2000};
};

/// The MIB database of the program. It knows the built-in modules at once. A thread of its own
/// compiles the user's modules over them, at the start and whenever one of the files changes; the
/// outcome is used from the call of Adopt on.
class Library : public MibLibrary, public MibFacts {
 public:
  /// `onNewImage` is called on the library's own thread whenever there is something to adopt. It
  /// must not call back into the library, throw, or wait for the event loop.
  Library(LibrarySetup setup, std::function<void()> onNewImage);
  /// Ends the compilation, if one is under way, and the thread.
  ~Library() override;
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// Called on the event loop.
  std::shared_ptr<OIDObject> MakeOIDObject() override;
  ObjectFacts FactsOf(std::span<const std::uint32_t> oid) const override;
  /// Lets new objects use the newest image. Called on the event loop; those who keep objects drop
  /// them afterwards. Never throws.
  void Adopt();

 private:
  void Work();
  void Refresh();
  bool Sleep();

  LibrarySetup setup_;
  std::function<void()> onNewImage_;
  std::shared_ptr<const Database> database_;  ///< of the event loop
  ImageCache cache_;                          ///< of the library's thread

  std::mutex mutex_;
  std::condition_variable wake_;
  std::shared_ptr<const Database> newest_;  ///< guarded by mutex_
  std::atomic<bool> stop_ = false;          ///< set under mutex_
  std::thread thread_;
};

}  // namespace sentrel::mib
