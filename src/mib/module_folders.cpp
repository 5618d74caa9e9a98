#include "mib/module_folders.h"

namespace sentrel::mib {

std::vector<Folder> StandardFolders(const std::string& programFolder, const std::string& dataFolder,
                                    const std::string& homeFolder) {
  std::vector<Folder> folders;
  if (!programFolder.empty()) folders.push_back({programFolder + "/mibs", true});
  if (!dataFolder.empty()) folders.push_back({dataFolder + "/mibs", true});
  if (!homeFolder.empty()) folders.push_back({homeFolder + "/.snmp/mibs", false});
  for (const std::string root : {"/usr/local/share/snmp/mibs", "/usr/share/snmp/mibs"}) {
    for (const char* below : {"", "/iana", "/ietf"}) folders.push_back({root + below, false});
  }
  return folders;
}

}  // namespace sentrel::mib
