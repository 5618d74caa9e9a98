#include "shell/file_name_of.h"

namespace sentrel {

std::string FileNameOf(const std::string& Path, bool CutExtension) {
  const size_t lastSeparator = Path.find_last_of("/\\:");
  const std::string name =
      lastSeparator == std::string::npos ? Path : Path.substr(lastSeparator + 1);
  return CutExtension ? name.substr(0, name.rfind('.')) : name;
}

}  // namespace sentrel
