#include "export/export_engine.h"

#include <fmt/format.h>

#include "common/failure.h"
#include "common/text.h"

namespace sentrel {
namespace {

const char* PrintMethod(bool preview) {
  return preview ? "PREVIEW" : "PRINTER";
}

void DefaultTo(std::string& setting, const std::string& method) {
  if (setting.empty()) setting = method;
}

}  // namespace

ExportEngine::ExportEngine(const ExportServices& services) : services_(services) {
  Reset();
}

bool ExportEngine::PrintTable(const Table& table, bool preview) {
  return ExportTable(table, PrintMethod(preview));
}

bool ExportEngine::PrintRTF(const std::string& rtf, bool preview) {
  return ExportRTF(rtf, PrintMethod(preview));
}

void ExportEngine::PrintText(const std::string& text, bool preview) {
  ExportText(text, PrintMethod(preview));
}

void ExportEngine::PrintTextFile(const std::string& filename, bool preview) {
  ExportTextFile(filename, PrintMethod(preview));
}

void ExportEngine::PrintEMFFile(const std::string& filename, bool preview) {
  ExportEMFFile(filename, PrintMethod(preview));
}

bool ExportEngine::PrintChart(const Chart& chart, bool preview) {
  return ExportChart(chart, PrintMethod(preview));
}

bool ExportEngine::PrintMap(const Map& map, bool preview) {
  return ExportMap(map, PrintMethod(preview));
}

void ExportEngine::PrintPicture(const Picture& picture, bool preview) {
  ExportPicture(picture, PrintMethod(preview));
}

void ExportEngine::PrintImageFile(const std::string& filename, bool preview) {
  ExportImageFile(filename, PrintMethod(preview));
}

template <typename Prepare, typename Call>
bool ExportEngine::Export(Prepare prepare, Call call) {
  const auto engine = StartEngine(false);
  if (!engine) return false;
  prepare();
  SetEngineProperties(*engine);
  bool done = false;
  try {
    done = call(*engine, services_.application.ProgramFolder());
  } catch (const std::exception& failure) {
    Tell(failure);
  }
  Reset();
  Attempt([&] { settings_.targetFilename = engine->TargetFilename(); });
  return done;
}

bool ExportEngine::ExportTable(const Table& table, const std::string& method) {
  return Export([] {},
                [&](ExportBackend& engine, const std::string& programPath) {
                  return engine.ExportTable(table, method, programPath);
                });
}

bool ExportEngine::ExportRTF(const std::string& rtf, const std::string& method) {
  return Export([] {},
                [&](ExportBackend& engine, const std::string& programPath) {
                  return engine.ExportRTF(rtf, method, programPath);
                });
}

bool ExportEngine::ExportText(const std::string& text, const std::string& method) {
  return Export([] {},
                [&](ExportBackend& engine, const std::string& programPath) {
                  return engine.ExportText(text, method, programPath);
                });
}

bool ExportEngine::ExportTextFile(const std::string& filename, const std::string& method) {
  return Export([] {}, [&](ExportBackend& engine,
                           const std::string&) { return engine.ExportTextFile(filename, method); });
}

bool ExportEngine::ExportEMFFile(const std::string& filename, const std::string& method) {
  return Export([] {},
                [&](ExportBackend& engine, const std::string& programPath) {
                  return engine.ExportEMFFile(filename, method, programPath);
                });
}

bool ExportEngine::ExportChart(const Chart& chart, const std::string& method) {
  return Export([&] { DefaultFormats(method); },
                [&](ExportBackend& engine, const std::string& programPath) {
                  return engine.ExportChart(chart, method, programPath);
                });
}

bool ExportEngine::ExportMap(const Map& map, const std::string& method) {
  return Export(
      [&] { DefaultFormats(method); },
      [&](ExportBackend& engine, const std::string&) { return engine.ExportMap(map, method); });
}

bool ExportEngine::ExportPicture(const Picture& picture, const std::string& method) {
  return Export([&] { DefaultTo(settings_.imageFormat, method); },
                [&](ExportBackend& engine, const std::string& programPath) {
                  return engine.ExportPicture(picture, method, programPath);
                });
}

bool ExportEngine::ExportImageFile(const std::string& filename, const std::string& method) {
  return Export([&] { DefaultTo(settings_.imageFormat, method); },
                [&](ExportBackend& engine, const std::string& programPath) {
                  return engine.ExportImageFile(filename, method, programPath);
                });
}

bool ExportEngine::NoPrinters() {
  if (services_.printers.Count() > 0) return false;
  services_.messageBox.Show(
      "You do not have a Printer installed.\r\n"
      "You must install a Printer before you can print.",
      MessageIcon::CriticalStop);
  return true;
}

void ExportEngine::Reset() {
  const ProgramIdentity& program = services_.program;
  settings_ = ExportSettings{};
  settings_.programName = program.fileDescription;
  settings_.programVersion =
      fmt::format("{}.{}.{}", program.majorVersion, program.minorVersion, program.revision);
}

std::unique_ptr<ExportBackend> ExportEngine::StartEngine(bool quiet) {
  try {
    return services_.engines.Create();
  } catch (const std::exception& failure) {
    if (quiet) return nullptr;
    services_.messageBox.Show(fmt::format("Cannot start Varnholt Export Engine.\r\n"
                                          "You may need to reinstall the Varnholt software.\r\n"
                                          "\r\n"
                                          "Error= {}",
                                          failure.what()),
                              MessageIcon::Exclamation, services_.program.fileDescription);
    return nullptr;
  }
}

void ExportEngine::SetEngineProperties(ExportBackend& engine) const {
  const auto push = [&engine](auto setter, const auto& value) {
    Attempt([&] { (engine.*setter)(value); });
  };
  push(&ExportBackend::SetProgramName, settings_.programName);
  push(&ExportBackend::SetProgramVersion, settings_.programVersion);
  push(&ExportBackend::SetTitle, settings_.title);
  push(&ExportBackend::SetSubTitle, settings_.subTitle);
  push(&ExportBackend::SetParagraph, settings_.paragraph);
  push(&ExportBackend::SetFooter, settings_.footer);
  push(&ExportBackend::SetImageHeight, settings_.imageHeight);
  push(&ExportBackend::SetImageWidth, settings_.imageWidth);
  push(&ExportBackend::SetImageFormat, settings_.imageFormat);
  push(&ExportBackend::SetFileFormat, settings_.fileFormat);
  push(&ExportBackend::SetOrientation, settings_.orientation);
  push(&ExportBackend::SetTargetFilename, settings_.targetFilename);
  push(&ExportBackend::SetInitDir, settings_.initDir);
  push(&ExportBackend::SetColumnList, settings_.columnList);
  push(&ExportBackend::SetSelectMethod, settings_.selectMethod);
  push(&ExportBackend::SetSkipFieldSelection, settings_.skipFieldSelection);
  push(&ExportBackend::SetSkipFilenameSelection, settings_.skipFilenameSelection);
  push(&ExportBackend::SetQuiet, settings_.quiet);
  push(&ExportBackend::SetDefaultPrinter, settings_.defaultPrinter);
}

void ExportEngine::DefaultFormats(const std::string& method) {
  DefaultTo(settings_.fileFormat, method);
  DefaultTo(settings_.imageFormat, method);
}

void ExportEngine::Tell(const std::exception& failure) {
  if (settings_.quiet) return;
  services_.messageBox.Show(failure.what(), MessageIcon::Exclamation,
                            services_.program.fileDescription);
}

}  // namespace sentrel
