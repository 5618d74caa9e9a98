#include "common/failure.h"
#include "common/text.h"
#include "export/export_engine.h"
#include "export/menu_loader.h"

namespace sentrel {

template <typename Question>
auto ExportEngine::AskEngine(Question question) {
  decltype(question(std::declval<ExportBackend&>())) answer;
  Attempt([&] {
    if (const auto engine = StartEngine(true)) answer = question(*engine);
  });
  return answer;
}

std::vector<std::string> ExportEngine::ExportMethods(std::int32_t objectType) {
  std::vector<std::string> keys;
  for (const ExportChoice& choice : MethodChoices(objectType)) keys.push_back(choice.key);
  return keys;
}

std::string ExportEngine::MethodName(const std::string& method) {
  return AskEngine([&](ExportBackend& engine) { return engine.MethodName(method); });
}

std::vector<ExportChoice> ExportEngine::SendToMethods() {
  return AskEngine([](ExportBackend& engine) { return engine.SendToMethods(); });
}

void ExportEngine::LoadExportsMenu(const MenuItem& menuItem, CommandList* parent,
                                   const std::string& prefix, std::int32_t objectType) {
  LoadMenu(MenuKind::Exports, menuItem, parent, prefix.empty() ? "Export:" : prefix,
           MethodChoices(objectType));
}

void ExportEngine::LoadSendToMenu(const MenuItem& menuItem, CommandList* parent,
                                  const std::string& prefix) {
  LoadMenu(MenuKind::SendTo, menuItem, parent, prefix.empty() ? "SendTo:" : prefix,
           SendToMethods());
}

std::string ExportEngine::BestExportMethod(std::int32_t objectType,
                                           const std::string& method) const {
  switch (objectType) {
    case 0:
    case 2:
    case 3:
      return IsMailProgram(method) ? "MHTML" : "HTML";
    case 1:
      return "TXT";
    default:
      return "";
  }
}

bool ExportEngine::IsMailProgram(const std::string& sendToMethod) {
  return UpperCase(sendToMethod).find(".MAPIMAIL") != std::string::npos;
}

std::vector<ExportChoice> ExportEngine::MethodChoices(std::int32_t objectType) {
  return AskEngine([&](ExportBackend& engine) { return engine.ExportMethods(objectType); });
}

}  // namespace sentrel
