#pragma once

#include <memory>
#include <string>

#include "snmp/replay_check.h"
#include "snmp/state_writer.h"
#include "snmp/version3_guard.h"

namespace sentrel {

/// The SNMP library, set up for as long as this object lives: users of version 3 read, engine ID
/// and boots count restored, nothing ever written to the standard streams. The library has but
/// one state: one object at a time in a process. Made on the receiver's thread, gone after its end;
/// meanwhile a thread of its own writes the state (StateWriter) and touches nothing of the library.
///
/// What must outlive the run is in sentrel.conf in the state folder: engine ID, boots count,
/// localized keys, and what the engines of senders have told of their time. The file is replaced
/// whole or not at all: at the start, while the program runs, at the end. A run that finds it
/// cannot keep it uses an engine ID of its own.
class SnmpLibrary {
 public:
  /// `stateFolder` is made if it is missing; empty keeps nothing. `configurationPath` lists the
  /// folders, separated by colons, that are searched for sentrel.conf; empty stands for the
  /// library's own: the system's SNMP folders, then .snmp in the home folder. What cannot be read
  /// is done without.
  /// The keeper gets to know the users of sentrel.conf, and must outlive this.
  SnmpLibrary(const std::string& stateFolder, const std::string& configurationPath,
              Version3UserKeeper& keeper);
  /// Writes the state back.
  ~SnmpLibrary();
  SnmpLibrary(const SnmpLibrary&) = delete;
  SnmpLibrary& operator=(const SnmpLibrary&) = delete;

  /// For the thread that parses.
  Version3Guard& Guard() { return *guard_; }

 private:
  void SetUpEngine();
  bool WriteState() const;

  Version3UserKeeper& keeper_;
  /// Empty where nothing can be kept.
  std::string stateFile_;
  /// The part of the state that this run does not change.
  std::string engineLines_;
  std::unique_ptr<ReplayCheck> replays_;
  std::unique_ptr<StateWriter> writer_;
  std::unique_ptr<Version3Guard> guard_;
};

}  // namespace sentrel
