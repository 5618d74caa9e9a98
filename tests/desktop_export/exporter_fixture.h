#pragma once

#include <gmock/gmock.h>

#include <QDir>
#include <QTemporaryDir>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>

#include "controls/table.h"
#include "desktop/export/document_exporter.h"
#include "dialogs.h"
#include "fakes/fake_console.h"
#include "fakes/fake_export.h"

namespace sentrel {

/// An exporter in front of a small table, a user, and a folder for its files.
class ExporterFixture : public testing::Test {
 protected:
  ExporterFixture();
  ~ExporterFixture() override { qputenv("PATH", path_); }

  /// An exporter as the program sets one up, with the file as its suggestion.
  std::unique_ptr<ExportBackend> NewExporter(const std::string& file = "Traps");
  /// One that asks for no columns and no file.
  std::unique_ptr<ExportBackend> NewSilentExporter(const std::string& file = "Traps");
  std::string Path(const QString& name) const { return folder_.filePath(name).toStdString(); }
  QStringList Files() const {
    return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
  }
  QByteArray Read(const QString& name) const;
  /// Puts a program in front of all others, which notes its arguments in the file NAME.log.
  void InstallTool(const QString& name, const QString& prints = "");
  /// What a tool was called with, one argument a line, once it has run.
  QByteArray WaitForTool(const QString& name);

  const QByteArray path_ = qgetenv("PATH");
  QTemporaryDir folder_;
  QWidget owner_;
  FakeClock clock_;
  FakeLocale locale_;
  CallLog log_;
  FakeMessageBox messageBox_{log_};
  FakeExportMemory memory_;
  Table table_;
  User user_;
  std::optional<DocumentExporterFactory> factory_{
      std::in_place, ExportDesk{owner_, clock_, locale_, messageBox_, memory_}};
};

}  // namespace sentrel
