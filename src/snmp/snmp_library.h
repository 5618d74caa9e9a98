#pragma once

#include <string>

namespace sentrel {

/// The SNMP library, set up for as long as this object lives: users of version 3 read, engine ID
/// and boots count restored, nothing ever written to the standard streams. The library has but
/// one state: one object at a time in a process.
class SnmpLibrary {
 public:
  /// `stateFolder` keeps engine ID, boots count and localized keys (sentrel.conf), and is made if
  /// need be; empty keeps nothing. `configurationPath` lists the folders, separated by colons,
  /// that are searched for sentrel.conf; empty stands for the library's own: the system's SNMP
  /// folders, then .snmp in the home folder. What cannot be read or written is done without.
  SnmpLibrary(const std::string& stateFolder, const std::string& configurationPath);
  /// Writes the state back.
  ~SnmpLibrary();
  SnmpLibrary(const SnmpLibrary&) = delete;
  SnmpLibrary& operator=(const SnmpLibrary&) = delete;
};

}  // namespace sentrel
