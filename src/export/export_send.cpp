#include "common/failure.h"
#include "common/text.h"
#include "export/export_engine.h"
#include "export/menu_loader.h"

namespace sentrel {
namespace {

constexpr std::int32_t kTable = 0;
constexpr std::int32_t kPicture = 2;
constexpr std::int32_t kDrawing = 3;

}  // namespace

/// The end of every send: one export, one hand-over, defaults again.
template <typename ExportObject>
bool ExportEngine::ExportThenSend(const std::string& sendToMethod, const std::string& method,
                                  ExportObject exportObject) {
  bool sent = false;
  if (exportObject(method)) {
    const std::string produced = settings_.targetFilename;
    sent = SendTo(produced, sendToMethod) == kSentAnswer;
  }
  Reset();
  return sent;
}

template <typename ExportObject>
bool ExportEngine::SendObject(std::int32_t objectType, const std::string& sendToMethod,
                              ExportObject exportObject) {
  PrepareSend();
  const std::string method = BestExportMethod(objectType, sendToMethod);
  const bool asContent = UpperCase(sendToMethod) == "MAILCONTENT";
  settings_.fileFormat = asContent ? "MHTML" : method;
  settings_.selectMethod = !asContent;
  return ExportThenSend(sendToMethod, method, exportObject);
}

template <typename ExportObject>
bool ExportEngine::SendText(const std::string& sendToMethod, ExportObject exportText) {
  PrepareSend();
  settings_.selectMethod = true;
  if (settings_.fileFormat.empty()) settings_.fileFormat = "txt";
  if (IsMailProgram(sendToMethod) && UpperCase(settings_.fileFormat) == "HTML") {
    settings_.fileFormat = "MHTML";
  }
  return ExportThenSend(sendToMethod, std::string(settings_.fileFormat), exportText);
}

void ExportEngine::PrepareSend() {
  if (settings_.targetFilename.empty()) {
    settings_.targetFilename = services_.application.ProgramFolder() + "/Export";
  }
  settings_.skipFilenameSelection = true;
  settings_.quiet = true;
}

bool ExportEngine::ExportAndSendTable(const Table& table, const std::string& sendToMethod) {
  return SendObject(kTable, sendToMethod,
                    [&](const std::string& method) { return ExportTable(table, method); });
}

bool ExportEngine::ExportAndSendChart(const Chart& chart, const std::string& sendToMethod) {
  return SendObject(kDrawing, sendToMethod,
                    [&](const std::string& method) { return ExportChart(chart, method); });
}

bool ExportEngine::ExportAndSendMap(const Map& map, const std::string& sendToMethod) {
  return SendObject(kDrawing, sendToMethod,
                    [&](const std::string& method) { return ExportMap(map, method); });
}

bool ExportEngine::ExportAndSendPicture(const Picture& picture, const std::string& sendToMethod) {
  return SendObject(kPicture, sendToMethod,
                    [&](const std::string& method) { return ExportPicture(picture, method); });
}

bool ExportEngine::ExportAndSendRTF(const std::string& rtfText, const std::string& sendToMethod) {
  return SendText(sendToMethod,
                  [&](const std::string& method) { return ExportRTF(rtfText, method); });
}

bool ExportEngine::ExportAndSendEMFFile(const std::string& emfFilename,
                                        const std::string& sendToMethod) {
  return SendObject(kDrawing, sendToMethod,
                    [&](const std::string& method) { return ExportEMFFile(emfFilename, method); });
}

bool ExportEngine::ExportAndSendText(const std::string& text, const std::string& sendToMethod) {
  return SendText(sendToMethod,
                  [&](const std::string& method) { return ExportText(text, method); });
}

std::string ExportEngine::SendTo(const std::string& filename, const std::string& sendToMethod) {
  const auto engine = StartEngine(false);
  if (!engine) return "";
  SetEngineProperties(*engine);
  std::string answer;
  try {
    answer = engine->SendTo(filename, sendToMethod);
  } catch (const std::exception& failure) {
    Tell(failure);
  }
  Reset();
  return answer;
}

}  // namespace sentrel
