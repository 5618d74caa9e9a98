#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "controls/table.h"
#include "platform/export_backend.h"
#include "platform/export_settings.h"
#include "platform/main_window.h"
#include "platform/menu_items.h"
#include "platform/message_box.h"
#include "platform/printers.h"
#include "platform/program_identity.h"

namespace sentrel {

/// What the facade works with; all of it must outlive the facade.
struct ExportServices {
  ExportBackendFactory& engines;
  const Application& application;
  MessageBox& messageBox;
  const Printers& printers;
  ProgramIdentity program;
};

/// Prints and exports every kind of object. It holds the settings of the next operation, makes an
/// engine for each, hands the settings over, makes one call and clears the settings again; then
/// TargetFilename() is the file that the engine reported.
///
/// If no engine can be made, the user is told, the operation returns false or nothing, and the
/// settings stay. A failure that an engine throws is told to the user, unless Quiet(), and counts
/// as not done. Used on the event loop only; nothing here throws.
class ExportEngine {
 public:
  explicit ExportEngine(const ExportServices& services);

  /// Print, or show a preview of, one object.
  bool PrintTable(const Table& table, bool preview = false);
  bool PrintRTF(const std::string& rtf, bool preview = false);
  void PrintText(const std::string& text, bool preview = false);
  void PrintTextFile(const std::string& filename, bool preview = false);
  void PrintEMFFile(const std::string& filename, bool preview = false);
  bool PrintChart(const Chart& chart, bool preview = false);
  bool PrintMap(const Map& map, bool preview = false);
  void PrintPicture(const Picture& picture, bool preview = false);
  void PrintImageFile(const std::string& filename, bool preview = false);

  /// Carry out a method on one object. An empty ImageFormat becomes the method for charts, maps and
  /// pictures; an empty FileFormat becomes it for charts and maps.
  bool ExportTable(const Table& table, const std::string& method);
  bool ExportRTF(const std::string& rtf, const std::string& method);
  bool ExportText(const std::string& text, const std::string& method);
  bool ExportTextFile(const std::string& filename, const std::string& method);
  bool ExportEMFFile(const std::string& filename, const std::string& method);
  bool ExportChart(const Chart& chart, const std::string& method);
  bool ExportMap(const Map& map, const std::string& method);
  bool ExportPicture(const Picture& picture, const std::string& method);
  bool ExportImageFile(const std::string& filename, const std::string& method);

  /// Export to a file without asking for its name, and hand the file to a send-to target. True
  /// when the file was written and handed over. "MailContent" (in any case) puts the content into
  /// the mail itself.
  bool ExportAndSendTable(const Table& table, const std::string& sendToMethod);
  bool ExportAndSendChart(const Chart& chart, const std::string& sendToMethod);
  bool ExportAndSendMap(const Map& map, const std::string& sendToMethod);
  bool ExportAndSendPicture(const Picture& picture, const std::string& sendToMethod);
  bool ExportAndSendRTF(const std::string& rtfText, const std::string& sendToMethod);
  bool ExportAndSendEMFFile(const std::string& emfFilename, const std::string& sendToMethod);
  bool ExportAndSendText(const std::string& text, const std::string& sendToMethod);
  /// The engine's answer in its text form; empty without an engine.
  std::string SendTo(const std::string& filename, const std::string& sendToMethod);

  /// The methods for an object: 0 table, 1 text, 2 picture, 3 chart, map or metafile. Without an
  /// engine the four operations that ask it give nothing, and say nothing.
  std::vector<std::string> ExportMethods(std::int32_t objectType = 0);
  std::string MethodName(const std::string& method);
  std::vector<ExportChoice> SendToMethods();
  /// The id of an entry begins with the prefix; empty means "Export:" or "SendTo:".
  void LoadExportsMenu(const MenuItem& menuItem, CommandList* parent = nullptr,
                       const std::string& prefix = "", std::int32_t objectType = 0);
  void LoadSendToMenu(const MenuItem& menuItem, CommandList* parent = nullptr,
                      const std::string& prefix = "");
  /// The file format that suits a send-to target; empty for an unknown kind of object.
  std::string BestExportMethod(std::int32_t objectType, const std::string& method) const;

  const std::string& ProgramName() const { return settings_.programName; }
  void SetProgramName(const std::string& name) { settings_.programName = name; }
  const std::string& ProgramVersion() const { return settings_.programVersion; }
  void SetProgramVersion(const std::string& version) { settings_.programVersion = version; }
  const std::string& Title() const { return settings_.title; }
  void SetTitle(const std::string& text) { settings_.title = text; }
  const std::string& SubTitle() const { return settings_.subTitle; }
  void SetSubTitle(const std::string& text) { settings_.subTitle = text; }
  const std::string& Paragraph() const { return settings_.paragraph; }
  void SetParagraph(const std::string& text) { settings_.paragraph = text; }
  const std::string& Footer() const { return settings_.footer; }
  void SetFooter(const std::string& text) { settings_.footer = text; }
  std::int32_t Orientation() const { return settings_.orientation; }
  void SetOrientation(std::int32_t direction) { settings_.orientation = direction; }
  std::int32_t ImageHeight() const { return settings_.imageHeight; }
  void SetImageHeight(std::int32_t pixels) { settings_.imageHeight = pixels; }
  std::int32_t ImageWidth() const { return settings_.imageWidth; }
  void SetImageWidth(std::int32_t pixels) { settings_.imageWidth = pixels; }
  const std::string& TargetFilename() const { return settings_.targetFilename; }
  void SetTargetFilename(const std::string& filename) { settings_.targetFilename = filename; }
  const std::string& InitDir() const { return settings_.initDir; }
  void SetInitDir(const std::string& path) { settings_.initDir = path; }
  const std::string& ImageFormat() const { return settings_.imageFormat; }
  void SetImageFormat(const std::string& fileFormat) { settings_.imageFormat = fileFormat; }
  bool SelectMethod() const { return settings_.selectMethod; }
  void SetSelectMethod(bool setting) { settings_.selectMethod = setting; }
  bool SkipFilenameSelection() const { return settings_.skipFilenameSelection; }
  void SetSkipFilenameSelection(bool setting) { settings_.skipFilenameSelection = setting; }
  bool SkipFieldSelection() const { return settings_.skipFieldSelection; }
  void SetSkipFieldSelection(bool setting) { settings_.skipFieldSelection = setting; }
  const std::string& ColumnList() const { return settings_.columnList; }
  void SetColumnList(const std::string& list) { settings_.columnList = list; }
  const std::string& FileFormat() const { return settings_.fileFormat; }
  void SetFileFormat(const std::string& format) { settings_.fileFormat = format; }
  bool Quiet() const { return settings_.quiet; }
  void SetQuiet(bool setting) { settings_.quiet = setting; }
  const std::string& DefaultPrinter() const { return settings_.defaultPrinter; }
  void SetDefaultPrinter(const std::string& deviceName) { settings_.defaultPrinter = deviceName; }

  /// Tells the user, and returns true, when the system has no printer.
  bool NoPrinters();
  /// Puts all settings to their defaults.
  void Reset();

 private:
  std::unique_ptr<ExportBackend> StartEngine(bool quiet);
  void SetEngineProperties(ExportBackend& engine) const;
  void DefaultFormats(const std::string& method);
  void Tell(const std::exception& failure);

  template <typename Prepare, typename Call>
  bool Export(Prepare prepare, Call call);
  template <typename Question>
  auto AskEngine(Question question);
  std::vector<ExportChoice> MethodChoices(std::int32_t objectType);
  static bool IsMailProgram(const std::string& sendToMethod);

  void PrepareSend();
  template <typename ExportObject>
  bool SendObject(std::int32_t objectType, const std::string& sendToMethod,
                  ExportObject exportObject);
  template <typename ExportObject>
  bool SendText(const std::string& sendToMethod, ExportObject exportText);
  template <typename ExportObject>
  bool ExportThenSend(const std::string& sendToMethod, const std::string& method,
                      ExportObject exportObject);

  ExportServices services_;
  ExportSettings settings_;
};

}  // namespace sentrel
