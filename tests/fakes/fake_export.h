#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "fakes/fake_console.h"
#include "platform/export_backend.h"
#include "platform/export_memory.h"
#include "platform/mouse_pointer.h"
#include "platform/printers.h"

namespace sentrel {

/// What all engines of a test were asked for, and what they are to answer.
struct ExportScript {
  explicit ExportScript(CallLog& callLog) : log(callLog) {}

  CallLog& log;
  std::map<std::string, std::string> properties;
  std::map<std::string, std::string> exported;  // the properties of the last export
  const Table* table = nullptr;
  std::string produced = "/tmp/produced";
  bool done = true;
  std::string sendAnswer = kSentAnswer;
  std::vector<ExportChoice> choices = {{"HTML", "Web page"}, {"PDF", "PDF file"}};
};

/// Notes each call as its name and arguments. A property is noted by its name alone.
class FakeExportBackend : public ExportBackend {
 public:
  explicit FakeExportBackend(ExportScript& script) : script_(script) {}

  void SetProgramName(const std::string& name) override { Set("ProgramName", name); }
  void SetProgramVersion(const std::string& version) override { Set("ProgramVersion", version); }
  void SetTitle(const std::string& text) override { Set("Title", text); }
  void SetSubTitle(const std::string& text) override { Set("SubTitle", text); }
  void SetParagraph(const std::string& text) override { Set("Paragraph", text); }
  void SetFooter(const std::string& text) override { Set("Footer", text); }
  void SetImageHeight(std::int32_t pixels) override { Set("ImageHeight", std::to_string(pixels)); }
  void SetImageWidth(std::int32_t pixels) override { Set("ImageWidth", std::to_string(pixels)); }
  void SetImageFormat(const std::string& format) override { Set("ImageFormat", format); }
  void SetFileFormat(const std::string& format) override { Set("FileFormat", format); }
  void SetOrientation(std::int32_t number) override { Set("Orientation", std::to_string(number)); }
  void SetTargetFilename(const std::string& name) override { Set("TargetFilename", name); }
  void SetInitDir(const std::string& path) override { Set("InitDir", path); }
  void SetColumnList(const std::string& list) override { Set("ColumnList", list); }
  void SetSelectMethod(bool on) override { Set("SelectMethod", Word(on)); }
  void SetSkipFieldSelection(bool on) override { Set("SkipFieldSelection", Word(on)); }
  void SetSkipFilenameSelection(bool on) override { Set("SkipFilenameSelection", Word(on)); }
  void SetQuiet(bool on) override { Set("Quiet", Word(on)); }
  void SetDefaultPrinter(const std::string& name) override { Set("DefaultPrinter", name); }

  std::string TargetFilename() const override {
    script_.log.Note("TargetFilename?");
    return script_.produced;
  }

  bool ExportTable(const Table& table, const std::string& method,
                   const std::string& programPath) override {
    script_.table = &table;
    return Do("ExportTable(" + method + ", " + programPath + ")");
  }
  bool ExportRTF(const std::string& rtf, const std::string& method,
                 const std::string& programPath) override {
    return Do("ExportRTF(" + rtf + ", " + method + ", " + programPath + ")");
  }
  bool ExportText(const std::string& text, const std::string& method,
                  const std::string& programPath) override {
    return Do("ExportText(" + text + ", " + method + ", " + programPath + ")");
  }
  bool ExportTextFile(const std::string& filename, const std::string& method) override {
    return Do("ExportTextFile(" + filename + ", " + method + ")");
  }
  bool ExportEMFFile(const std::string& filename, const std::string& method,
                     const std::string& programPath) override {
    return Do("ExportEMFFile(" + filename + ", " + method + ", " + programPath + ")");
  }
  bool ExportChart(const Chart&, const std::string& method,
                   const std::string& programPath) override {
    return Do("ExportChart(" + method + ", " + programPath + ")");
  }
  bool ExportMap(const Map&, const std::string& method) override {
    return Do("ExportMap(" + method + ")");
  }
  bool ExportPicture(const Picture&, const std::string& method,
                     const std::string& programPath) override {
    return Do("ExportPicture(" + method + ", " + programPath + ")");
  }
  bool ExportImageFile(const std::string& filename, const std::string& method,
                       const std::string& programPath) override {
    return Do("ExportImageFile(" + filename + ", " + method + ", " + programPath + ")");
  }
  std::string SendTo(const std::string& filename, const std::string& target) override {
    script_.log.Note("SendTo(" + filename + ", " + target + ")");
    return script_.sendAnswer;
  }
  std::vector<ExportChoice> ExportMethods(std::int32_t objectType) override {
    script_.log.Note("ExportMethods(" + std::to_string(objectType) + ")");
    return script_.choices;
  }
  std::string MethodName(const std::string& method) override { return "Name of " + method; }
  std::vector<ExportChoice> SendToMethods() override { return script_.choices; }

 private:
  static std::string Word(bool on) { return on ? "true" : "false"; }
  void Set(const std::string& name, const std::string& value) {
    script_.log.Note(name);
    script_.properties[name] = value;
  }
  bool Do(const std::string& call) {
    script_.exported = script_.properties;
    script_.log.Note(call);
    return script_.done;
  }

  ExportScript& script_;
};

/// Notes each creation as "Create"; fails where the log tells that call to fail.
class FakeExportBackendFactory : public ExportBackendFactory {
 public:
  explicit FakeExportBackendFactory(ExportScript& script) : script_(script) {}
  std::unique_ptr<ExportBackend> Create() override {
    script_.log.Note("Create");
    return std::make_unique<FakeExportBackend>(script_);
  }

 private:
  ExportScript& script_;
};

class FakePrinters : public Printers {
 public:
  int Count() const override { return count; }
  int count = 1;
};

class FakeExportMemory : public ExportMemory {
 public:
  std::string LeftOutColumns() const override { return leftOut; }
  void SetLeftOutColumns(const std::string& titles) override { leftOut = titles; }
  std::string leftOut;
};

class FakeMousePointer : public MousePointer, protected Noting {
 public:
  using Noting::Noting;
  void SetHourglass(bool on) override { log_.Note(on ? "hourglass" : "pointer"); }
};

}  // namespace sentrel
