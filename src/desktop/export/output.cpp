#include "desktop/export/output.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include "common/atomic_file.h"
#include "common/failure.h"
#include "common/text.h"
#include "desktop/export/filename.h"
#include "desktop/export/progress_dialog.h"
#include "desktop/export/send.h"

namespace sentrel {
namespace {

constexpr std::int32_t kLandscape = 2;

}  // namespace

std::optional<bool> ExportOutput::Paper(Pages& pages, const std::string& method) {
  const std::string upper = UpperCase(method);
  if (upper == "PDF") return SavePdf(pages);
  if (upper == "PRINTER") return Print(pages);
  if (upper != "PREVIEW") return std::nullopt;
  ShowPreview(pages, Job(), &desk_.owner);
  return true;
}

bool ExportOutput::Print(Pages& pages) {
  ProgressDialog progress(&desk_.owner, "Printing ...");
  const auto outcome = PrintOnPaper(pages, Job(), &desk_.owner, settings_.quiet, progress);
  if (outcome == PrintOutcome::NoPrinter) return !settings_.quiet && OfferPdf(pages);
  return outcome == PrintOutcome::Done;
}

bool ExportOutput::OfferPdf(Pages& pages) {
  QMessageBox box(QMessageBox::Warning, "Sentrel",
                  "There is no printer on this system. You can save the pages as a PDF file.",
                  QMessageBox::NoButton, &desk_.owner);
  box.setObjectName("NoPrinter");
  QPushButton* save = box.addButton("&Save as PDF ...", QMessageBox::AcceptRole);
  box.addButton(QMessageBox::Cancel);
  box.setDefaultButton(save);
  box.exec();
  const QAbstractButton* chosen = box.clickedButton();
  return chosen == save && SavePdf(pages);
}

bool ExportOutput::SavePdf(Pages& pages) {
  return Save({"PDF file", "pdf"},
              [&](Progress& progress) { return PdfFile(pages, Job(), progress).toStdString(); });
}

bool ExportOutput::Save(const FileKind& kind, const FileWriter& writer) {
  const auto filename = ChooseFile(kind);
  if (!filename) return false;
  Write(*filename, writer);
  return true;
}

bool ExportOutput::OpenDirectly(const FileKind& kind, const FileWriter& writer) {
  QTemporaryDir folder(QDir::tempPath() + "/Sentrel-XXXXXX");
  if (!folder.isValid()) {
    throw Failure("Cannot make a folder for the file: " + folder.errorString().toStdString() + ".");
  }
  const QString name = QFileInfo(QString::fromStdString(settings_.targetFilename)).fileName();
  Write(folder.filePath(WithExtension(name.isEmpty() ? "Export" : name, kind.extension)), writer);
  OpenFile(settings_.targetFilename);
  folder.setAutoRemove(false);  // the file belongs to the other program now
  return true;
}

PrintJob ExportOutput::Job() const {
  return {settings_.title, settings_.programName + " " + settings_.programVersion,
          settings_.orientation == kLandscape, settings_.defaultPrinter};
}

std::optional<QString> ExportOutput::ChooseFile(const FileKind& kind) const {
  QString target = QString::fromStdString(settings_.targetFilename);
  if (target.isEmpty()) target = "Export";
  if (!settings_.initDir.empty()) {
    target = QDir(QString::fromStdString(settings_.initDir)).filePath(target);
  }
  if (settings_.skipFilenameSelection) {
    return WithExtension(WritablePlace(target, QDir::tempPath()), kind.extension);
  }
  return AskFilename(&desk_.owner, target, kind.caption, kind.extension);
}

void ExportOutput::Write(const QString& filename, const FileWriter& writer) {
  std::string bytes;
  {
    ProgressDialog progress(&desk_.owner, "Exporting ...");
    bytes = writer(progress);
  }
  WriteFile(filename.toStdString(), bytes);
  settings_.targetFilename = filename.toStdString();
}

}  // namespace sentrel
