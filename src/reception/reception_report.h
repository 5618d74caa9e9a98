#pragma once

#include <span>
#include <string>
#include <vector>

#include "reception/check_steps.h"
#include "reception/reasons.h"
#include "reception/watch.h"

namespace sentrel {

/// "v3 authPriv"; empty where the version could not be read.
std::string VersionText(const SeenDatagram& seen);
/// The reason of a refusal, with what is known of it beyond that.
std::string RefusalText(const SeenDatagram& seen);

/// All that the reception window shows, as plain text for a colleague: without communities, and
/// without the names of users.
std::string ReceptionReport(const std::vector<Reason>& reasons,
                            const std::vector<SeenDatagram>& refused,
                            const std::deque<WatchedDatagram>& watched,
                            const std::vector<CheckStep>& check);

}  // namespace sentrel
