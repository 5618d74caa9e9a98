#pragma once

#include <QImage>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/export/output.h"
#include "documents/table_content.h"
#include "platform/export_backend.h"
#include "platform/export_settings.h"

namespace sentrel {

/// Prints, previews and writes tables, texts and pictures with the desktop's dialogs. The other
/// kinds of object are refused with a message. A table is copied when its export begins: what
/// arrives in it later changes nothing.
class DocumentExporter : public ExportBackend {
 public:
  explicit DocumentExporter(const ExportDesk& desk) : desk_(desk) {}

  void SetProgramName(const std::string& name) override { settings_.programName = name; }
  void SetProgramVersion(const std::string& text) override { settings_.programVersion = text; }
  void SetTitle(const std::string& text) override { settings_.title = text; }
  void SetSubTitle(const std::string& text) override { settings_.subTitle = text; }
  void SetParagraph(const std::string& text) override { settings_.paragraph = text; }
  void SetFooter(const std::string& text) override { settings_.footer = text; }
  void SetImageHeight(std::int32_t pixels) override { settings_.imageHeight = pixels; }
  void SetImageWidth(std::int32_t pixels) override { settings_.imageWidth = pixels; }
  void SetImageFormat(const std::string& format) override { settings_.imageFormat = format; }
  void SetFileFormat(const std::string& format) override { settings_.fileFormat = format; }
  void SetOrientation(std::int32_t direction) override { settings_.orientation = direction; }
  void SetTargetFilename(const std::string& name) override { settings_.targetFilename = name; }
  void SetInitDir(const std::string& path) override { settings_.initDir = path; }
  void SetColumnList(const std::string& list) override { settings_.columnList = list; }
  void SetSelectMethod(bool setting) override { settings_.selectMethod = setting; }
  void SetSkipFieldSelection(bool setting) override { settings_.skipFieldSelection = setting; }
  void SetSkipFilenameSelection(bool on) override { settings_.skipFilenameSelection = on; }
  void SetQuiet(bool setting) override { settings_.quiet = setting; }
  void SetDefaultPrinter(const std::string& name) override { settings_.defaultPrinter = name; }

  std::string TargetFilename() const override { return settings_.targetFilename; }

  bool ExportTable(const Table& table, const std::string& method,
                   const std::string& programPath) override;
  bool ExportRTF(const std::string& rtf, const std::string& method,
                 const std::string& programPath) override;
  bool ExportText(const std::string& text, const std::string& method,
                  const std::string& programPath) override;
  bool ExportTextFile(const std::string& filename, const std::string& method) override;
  bool ExportEMFFile(const std::string& filename, const std::string& method,
                     const std::string& programPath) override;
  bool ExportChart(const Chart& chart, const std::string& method,
                   const std::string& programPath) override;
  bool ExportMap(const Map& map, const std::string& method) override;
  bool ExportPicture(const Picture& picture, const std::string& method,
                     const std::string& programPath) override;
  bool ExportImageFile(const std::string& filename, const std::string& method,
                       const std::string& programPath) override;
  std::string SendTo(const std::string& filename, const std::string& sendToMethod) override;

  std::vector<ExportChoice> ExportMethods(std::int32_t objectType) override;
  std::string MethodName(const std::string& method) override;
  std::vector<ExportChoice> SendToMethods() override;

 private:
  bool Guarded(const std::function<bool()>& work);
  bool Refuse(const char* kind);
  void Tell(const std::string& text);
  TableContent Texts() const;
  bool ChooseColumns(TableContent& content);
  std::string WantedFormat(const std::string& method) const;
  bool ExportContent(const TableContent& content, const std::string& method);
  bool ExportImage(const QImage& image, const std::string& method);

  ExportDesk desk_;
  ExportSettings settings_;
};

class DocumentExporterFactory : public ExportBackendFactory {
 public:
  explicit DocumentExporterFactory(const ExportDesk& desk) : desk_(desk) {}
  std::unique_ptr<ExportBackend> Create() override {
    return std::make_unique<DocumentExporter>(desk_);
  }

 private:
  ExportDesk desk_;
};

}  // namespace sentrel
