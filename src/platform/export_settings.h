#pragma once

#include <cstdint>
#include <string>

namespace sentrel {

/// The settings of one export operation, as the setters of ExportBackend tell them.
struct ExportSettings {
  std::string programName;
  std::string programVersion;
  std::string title;
  std::string subTitle;
  std::string paragraph;
  std::string footer;
  std::int32_t orientation = 1;
  std::int32_t imageHeight = 400;
  std::int32_t imageWidth = 640;
  std::string targetFilename;
  std::string initDir;
  std::string imageFormat = "GIF";
  std::string columnList;
  std::string fileFormat;
  bool selectMethod = false;
  bool skipFieldSelection = false;
  bool skipFilenameSelection = false;
  bool quiet = false;
  std::string defaultPrinter;
};

}  // namespace sentrel
