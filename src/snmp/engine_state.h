#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "snmp/replay_check.h"

namespace sentrel {

/// Engines by their IDs, and the newest moment that each has told.
using HeardEngines = std::map<ReplayCheck::EngineId, EngineMoment>;

/// Makes the SNMP library read what an earlier run has kept: engine ID, boots count and heardEngine
/// lines. For the moment when the library has registered its own words and has yet to read a file.
void ReadKeptState();
/// Gives the engine its ID when the files have been read: the one that an administrator has set,
/// else the one that was kept, else a random one. For the moment before the library is set up.
void SetUpEngineIdAfterReading();
/// Counts one boot more than the engine of this ID had, up to the highest value (RFC 3414, section
/// 2.2.2). Where its count is not known, the engine gets a new ID. For the moment when the library
/// is set up.
void ContinueBoots();
/// What was read, less the engines that forgetEngine lines name.
HeardEngines HeardBefore();

/// The ID of this program's engine.
std::string OwnEngineId();
/// How often it has started (RFC 3414, section 2.2.2).
std::uint32_t OwnBoots();
/// Gives the engine a random ID: one that does not know its boots count, or cannot keep it, must
/// not be taken for the engine that it was (RFC 3414, section 2.2.2).
void TakeNewEngineId();

/// The lines that bring this run's engine back: ID, boots count, users with their keys.
std::string EngineLines();
/// The lines from which HeardBefore comes.
std::string HeardLines(const HeardEngines& engines);

}  // namespace sentrel
