#include "shell/file_ver_info.h"

namespace sentrel {

void FileVerInfo::GetExecutableInfo() {
  GetInfo(ExecutableFile(application_));
}

void FileVerInfo::GetInfo(const std::string& file) {
  const auto record = reader_.ReadVersion(file);
  if (!record) {
    ClearVersionFields();
    return;
  }
  file_ = VersionOf(record->dwFileVersionMS, record->dwFileVersionLS);
  product_ = VersionOf(record->dwProductVersionMS, record->dwProductVersionLS);
}

std::string ExecutableFile(const Application& application) {
  return application.ProgramFolder() + "/" + application.ExecutableName();
}

}  // namespace sentrel
