#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace sentrel {

class Table;

/// A bitmap, row by row from the top left corner, 0xAARRGGBB. `pixels` holds width times height.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;
};

/// Kinds of object that this program does not have.
struct Chart {};
struct Map {};

/// One export method or send-to target: its name in calls, and its caption in menus.
struct ExportChoice {
  std::string key;
  std::string caption;
};

inline constexpr const char* kSentAnswer = "True";

/// What carries the operations of ExportEngine out, called the engine there: it prints, previews or
/// writes one object, and asks the user what it has to ask. The properties are set before the one
/// call; each serves a single operation. All calls come from the event loop, and any of them may
/// throw Failure.
///
/// A call returns when the work is done or cancelled; events are handled while a dialog is open.
/// Objects are borrowed for the length of the call. The result tells whether the work was done; by
/// then the user has been told what went wrong, except when Quiet.
class ExportBackend {
 public:
  virtual ~ExportBackend() = default;

  virtual void SetProgramName(const std::string& name) = 0;
  virtual void SetProgramVersion(const std::string& version) = 0;
  /// Texts that go with the object in the output.
  virtual void SetTitle(const std::string& text) = 0;
  virtual void SetSubTitle(const std::string& text) = 0;
  virtual void SetParagraph(const std::string& text) = 0;
  virtual void SetFooter(const std::string& text) = 0;
  /// Size and format of a picture to be made, in pixels. The format is a file name extension.
  virtual void SetImageHeight(std::int32_t pixels) = 0;
  virtual void SetImageWidth(std::int32_t pixels) = 0;
  virtual void SetImageFormat(const std::string& fileFormat) = 0;
  /// Format of the file to be written; empty leaves it to the method.
  virtual void SetFileFormat(const std::string& format) = 0;
  /// 1 is portrait, 2 landscape.
  virtual void SetOrientation(std::int32_t direction) = 0;
  /// The file to write, or the suggestion that its selection starts from, in the folder InitDir
  /// where it names none.
  virtual void SetTargetFilename(const std::string& filename) = 0;
  virtual void SetInitDir(const std::string& path) = 0;
  /// Titles of the columns to take, separated by commas; empty takes all.
  virtual void SetColumnList(const std::string& list) = 0;
  /// Whether the method, and not FileFormat, decides the format where the two differ.
  virtual void SetSelectMethod(bool setting) = 0;
  virtual void SetSkipFieldSelection(bool setting) = 0;
  virtual void SetSkipFilenameSelection(bool setting) = 0;
  /// Work without messages.
  virtual void SetQuiet(bool setting) = 0;
  /// Name of a printer; empty takes the system's own choice.
  virtual void SetDefaultPrinter(const std::string& deviceName) = 0;

  /// Name of the file that the operation produced.
  virtual std::string TargetFilename() const = 0;

  virtual bool ExportTable(const Table& table, const std::string& method,
                           const std::string& programPath) = 0;
  virtual bool ExportRTF(const std::string& rtf, const std::string& method,
                         const std::string& programPath) = 0;
  virtual bool ExportText(const std::string& text, const std::string& method,
                          const std::string& programPath) = 0;
  virtual bool ExportTextFile(const std::string& filename, const std::string& method) = 0;
  virtual bool ExportEMFFile(const std::string& filename, const std::string& method,
                             const std::string& programPath) = 0;
  virtual bool ExportChart(const Chart& chart, const std::string& method,
                           const std::string& programPath) = 0;
  virtual bool ExportMap(const Map& map, const std::string& method) = 0;
  virtual bool ExportPicture(const Picture& picture, const std::string& method,
                             const std::string& programPath) = 0;
  virtual bool ExportImageFile(const std::string& filename, const std::string& method,
                               const std::string& programPath) = 0;

  /// Hands a file on to a target. The answer is kSentAnswer if that was done.
  virtual std::string SendTo(const std::string& filename, const std::string& sendToMethod) = 0;

  /// The methods that suit an object: 0 table, 1 text, 2 picture, 3 chart, map or metafile.
  virtual std::vector<ExportChoice> ExportMethods(std::int32_t objectType) = 0;
  /// The caption of a method; empty if it is unknown.
  virtual std::string MethodName(const std::string& method) = 0;
  virtual std::vector<ExportChoice> SendToMethods() = 0;
};

/// Makes one backend for each operation. Called on the event loop.
class ExportBackendFactory {
 public:
  virtual ~ExportBackendFactory() = default;
  /// Never null. Throws Failure with the reason if none can be made.
  virtual std::unique_ptr<ExportBackend> Create() = 0;
};

}  // namespace sentrel
