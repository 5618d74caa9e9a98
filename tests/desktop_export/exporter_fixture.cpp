#include "exporter_fixture.h"

#include <QApplication>
#include <QFile>
#include <QTest>

namespace sentrel {

ExporterFixture::ExporterFixture() {
  table_.SetCols(3);
  const char* titles[] = {"Trap Time", "IP Address", "Trap Details"};
  for (int col = 0; col < 3; ++col) table_.SetCell(0, col, titles[col]);
  table_.AddItem("05-Dec-26\t192.0.2.1\tifIndex=1", 1);
  QApplication::setQuitOnLastWindowClosed(false);
  owner_.show();
}

std::unique_ptr<ExportBackend> ExporterFixture::NewSilentExporter(const std::string& file) {
  auto exporter = NewExporter(file);
  exporter->SetSkipFieldSelection(true);
  exporter->SetSkipFilenameSelection(true);
  return exporter;
}

std::unique_ptr<ExportBackend> ExporterFixture::NewExporter(const std::string& file) {
  auto exporter = factory_->Create();
  exporter->SetProgramName("Sentrel");
  exporter->SetProgramVersion("9.2.47");
  exporter->SetTitle("SNMP Traps");
  exporter->SetTargetFilename(Path(QString::fromStdString(file)));
  return exporter;
}

QByteArray ExporterFixture::Read(const QString& name) const {
  QFile file(folder_.filePath(name));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
  return file.readAll();
}

void ExporterFixture::InstallTool(const QString& name, const QString& prints) {
  QDir(folder_.path()).mkpath("bin");
  QFile tool(folder_.filePath("bin/" + name));
  ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
  const QString log = folder_.filePath("bin/" + name + ".log");
  tool.write(QString("#!/bin/sh\nprintf '%s\\n' \"$@\" > '%1.part'\nmv '%1.part' '%1'\necho '%2'\n")
                 .arg(log, prints)
                 .toUtf8());
  tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  qputenv("PATH", (folder_.filePath("bin") + ":/usr/bin:/bin").toUtf8());
}

QByteArray ExporterFixture::WaitForTool(const QString& name) {
  const QString log = "bin/" + name + ".log";
  EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder_.filePath(log)); }, 20000));
  QByteArray arguments = Read(log);
  QFile::remove(folder_.filePath(log));
  return arguments;
}

}  // namespace sentrel
