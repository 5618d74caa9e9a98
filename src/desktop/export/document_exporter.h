#pragma once

#include <QImage>
#include <memory>
#include <string>
#include <vector>

#include "desktop/export/export_session.h"
#include "desktop/export/opened_files.h"
#include "documents/table_content.h"
#include "platform/export_backend.h"

namespace sentrel {

/// Prints, previews and writes tables, texts and pictures with the desktop's dialogs. Other kinds
/// of object are refused with a message. A table is copied when its export begins: traps that
/// arrive later change nothing.
class DocumentExporter : public ExportBackend {
 public:
  /// The opened files must outlive it.
  DocumentExporter(const ExportDesk& desk, OpenedFiles& opened) : session_(desk), opened_(opened) {}

  void SetProgramName(const std::string& name) override { session_.settings.programName = name; }
  void SetProgramVersion(const std::string& text) override {
    session_.settings.programVersion = text;
  }
  void SetTitle(const std::string& text) override { session_.settings.title = text; }
  void SetSubTitle(const std::string& text) override { session_.settings.subTitle = text; }
  void SetParagraph(const std::string& text) override { session_.settings.paragraph = text; }
  void SetFooter(const std::string& text) override { session_.settings.footer = text; }
  void SetImageHeight(std::int32_t pixels) override { session_.settings.imageHeight = pixels; }
  void SetImageWidth(std::int32_t pixels) override { session_.settings.imageWidth = pixels; }
  void SetImageFormat(const std::string& format) override {
    session_.settings.imageFormat = format;
  }
  void SetFileFormat(const std::string& format) override { session_.settings.fileFormat = format; }
  void SetOrientation(std::int32_t direction) override {
    session_.settings.orientation = direction;
  }
  void SetTargetFilename(const std::string& name) override {
    session_.settings.targetFilename = name;
  }
  void SetInitDir(const std::string& path) override { session_.settings.initDir = path; }
  void SetColumnList(const std::string& list) override { session_.settings.columnList = list; }
  void SetSelectMethod(bool setting) override { session_.settings.selectMethod = setting; }
  void SetSkipFieldSelection(bool setting) override {
    session_.settings.skipFieldSelection = setting;
  }
  void SetSkipFilenameSelection(bool on) override { session_.settings.skipFilenameSelection = on; }
  void SetQuiet(bool setting) override { session_.settings.quiet = setting; }
  void SetDefaultPrinter(const std::string& name) override {
    session_.settings.defaultPrinter = name;
  }

  std::string TargetFilename() const override { return session_.settings.targetFilename; }

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
  bool Refuse(const char* kind);
  TableContent Texts() const;
  bool ChooseColumns(TableContent& content);
  std::string WantedFormat(const std::string& method) const;
  bool ExportContent(const TableContent& content, const std::string& method);
  bool ExportImage(const QImage& image, const std::string& method);

  ExportSession session_;
  OpenedFiles& opened_;
};

/// The files that its exporters open in other programs are removed with it.
class DocumentExporterFactory : public ExportBackendFactory {
 public:
  explicit DocumentExporterFactory(const ExportDesk& desk) : desk_(desk) {}
  std::unique_ptr<ExportBackend> Create() override {
    return std::make_unique<DocumentExporter>(desk_, opened_);
  }

 private:
  ExportDesk desk_;
  OpenedFiles opened_;
};

}  // namespace sentrel
