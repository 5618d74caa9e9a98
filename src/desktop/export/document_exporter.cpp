#include "desktop/export/document_exporter.h"

#include <fmt/format.h>

#include <QFile>
#include <QImageReader>

#include "common/failure.h"
#include "common/text.h"
#include "common/visible_text.h"
#include "desktop/export/export_columns_dialog.h"
#include "desktop/export/file_output.h"
#include "desktop/export/paper_output.h"
#include "desktop/export/picture_pages.h"
#include "desktop/export/send_to_targets.h"
#include "desktop/export/table_pages.h"
#include "documents/file_formats.h"
#include "documents/unicode.h"

namespace sentrel {
namespace {

constexpr std::int32_t kLandscape = 2;

std::string ReadTextFile(const std::string& filename) {
  QFile file(QString::fromStdString(filename));
  if (!file.open(QIODevice::ReadOnly)) {
    throw Failure(
        fmt::format("Cannot read the file {}: {}.", filename, file.errorString().toStdString()));
  }
  return file.readAll().toStdString();
}

[[noreturn]] void Unknown(const std::string& method) {
  throw Failure(fmt::format("There is no export of the kind \"{}\" for this.", method));
}

/// Rows that a filter leaves out are not missed.
void NameChoice(const Table& table, TableContent& content) {
  const std::string choice = VisibleText(table.ChoiceText());
  if (!content.subTitle.empty() && !choice.empty()) content.subTitle += " - ";
  content.subTitle += choice;
}

}  // namespace

bool DocumentExporter::ExportTable(const Table& table, const std::string& method,
                                   const std::string&) {
  return session_.Guarded([&] {
    TableContent content = Texts();
    TakeTable(table, content);
    NameChoice(table, content);
    return ChooseColumns(content) && ExportContent(content, method);
  });
}

bool DocumentExporter::ExportText(const std::string& text, const std::string& method,
                                  const std::string&) {
  return session_.Guarded([&] {
    TableContent content = Texts();
    content.paragraph = VisibleText(text);
    return ExportContent(content, method);
  });
}

bool DocumentExporter::ExportTextFile(const std::string& filename, const std::string& method) {
  return session_.Guarded([&] { return ExportText(ReadTextFile(filename), method, ""); });
}

bool DocumentExporter::ExportPicture(const Picture& picture, const std::string& method,
                                     const std::string&) {
  return session_.Guarded([&] { return ExportImage(ToImage(picture), method); });
}

bool DocumentExporter::ExportImageFile(const std::string& filename, const std::string& method,
                                       const std::string&) {
  return session_.Guarded([&] {
    QImageReader reader(QString::fromStdString(filename));
    const QImage image = reader.read();
    if (image.isNull()) {
      throw Failure(fmt::format("Cannot read the picture {}: {}.", filename,
                                reader.errorString().toStdString()));
    }
    return ExportImage(image, method);
  });
}

bool DocumentExporter::ExportRTF(const std::string&, const std::string&, const std::string&) {
  return Refuse("formatted text");
}

bool DocumentExporter::ExportEMFFile(const std::string&, const std::string&, const std::string&) {
  return Refuse("metafiles");
}

bool DocumentExporter::ExportChart(const Chart&, const std::string&, const std::string&) {
  return Refuse("charts");
}

bool DocumentExporter::ExportMap(const Map&, const std::string&) {
  return Refuse("maps");
}

std::string DocumentExporter::SendTo(const std::string& filename, const std::string& sendToMethod) {
  const bool sent = session_.Guarded([&] {
    SendFile(filename, sendToMethod, session_.settings.title);
    return true;
  });
  return sent ? kSentAnswer : "False";
}

std::vector<ExportChoice> DocumentExporter::ExportMethods(std::int32_t objectType) {
  static const std::vector<std::string> kMethods[] = {
      {"CDF", "Text", "HTML", "MHTML", "XLS", "Excel", "PDF"},
      {"TXT", "HTML", "MHTML", "PDF"},
      {"PNG", "JPG", "PDF"}};
  std::vector<ExportChoice> choices;
  if (objectType < 0 || objectType > 2) return choices;
  for (const std::string& method : kMethods[objectType]) {
    choices.push_back({method, MethodName(method)});
  }
  return choices;
}

std::string DocumentExporter::MethodName(const std::string& method) {
  const std::string upper = UpperCase(method);
  if (upper == "EXCEL") return "Directly to Excel";
  if (upper == "PDF") return "PDF file";
  if (upper == "PRINTER") return "Printer";
  if (upper == "PREVIEW") return "Print preview";
  if (CanWriteImage(method)) return upper + " picture";
  const FileFormat* format = FindFileFormat(method);
  return format ? std::string(format->caption) : "";
}

std::vector<ExportChoice> DocumentExporter::SendToMethods() {
  return SendTargets();
}

bool DocumentExporter::Refuse(const char* kind) {
  session_.Tell(fmt::format("{} does not export {}.", session_.settings.programName, kind));
  return false;
}

TableContent DocumentExporter::Texts() const {
  TableContent content;
  content.title = VisibleText(session_.settings.title);
  content.subTitle = VisibleText(session_.settings.subTitle);
  content.paragraph = VisibleText(session_.settings.paragraph);
  content.footer = VisibleText(session_.settings.footer);
  content.program =
      VisibleText(session_.settings.programName + " " + session_.settings.programVersion);
  content.made = session_.Desk().clock.Now();
  content.madeText = FormatMediumDate(content.made, session_.Desk().locale.Texts()) + " " +
                     FormatTime(content.made, session_.Desk().locale.Texts());
  content.landscape = session_.settings.orientation == kLandscape;
  return content;
}

/// At first the titles of the column list are ticked or, without one, all but those that were left
/// out last time.
bool DocumentExporter::ChooseColumns(TableContent& content) {
  QStringList titles;
  QStringList leftOut = QString::fromStdString(session_.Desk().memory.LeftOutColumns()).split('\n');
  for (const ContentColumn& column : content.columns) {
    titles << QString::fromStdString(column.title);
  }
  if (!session_.settings.columnList.empty()) {
    leftOut = titles;
    for (const QString& title : QString::fromStdString(session_.settings.columnList).split(',')) {
      leftOut.removeAll(title.trimmed());
    }
  }
  const bool ask = !session_.settings.skipFieldSelection && !session_.settings.quiet;
  if (!ask && session_.settings.columnList.empty()) return true;
  ExportColumnsDialog dialog(titles, leftOut, session_.Owner());
  if (ask) {
    if (dialog.exec() != QDialog::Accepted) return false;
    session_.Desk().memory.SetLeftOutColumns(dialog.LeftOut().join('\n').toStdString());
  }
  KeepColumns(dialog.Ticked(), content);
  return true;
}

std::string DocumentExporter::WantedFormat(const std::string& method) const {
  return session_.settings.fileFormat.empty() || session_.settings.selectMethod
             ? method
             : session_.settings.fileFormat;
}

bool DocumentExporter::ExportContent(const TableContent& content, const std::string& method) {
  const std::string wanted = WantedFormat(method);
  FileOutput files(session_, opened_);
  PaperOutput paper(session_, files, [&](const QPageLayout& layout, Progress& progress) {
    return std::make_unique<TablePages>(content, layout, progress);
  });
  if (const auto done = paper.CarryOut(wanted)) return *done;
  const FileFormat* format = FindFileFormat(wanted);
  if (!format || (content.columns.empty() && !format->forTexts)) Unknown(wanted);
  const FileKind kind{QString::fromUtf8(format->caption.data()),
                      QString::fromUtf8(format->extension.data())};
  const auto writer = [&](Progress& progress) { return format->write(content, progress); };
  if (format->method != "Excel") return files.Save(kind, writer);
  files.OpenDirectly(kind, writer);
  return true;
}

/// The picture is scaled to fit the size of the settings.
bool DocumentExporter::ExportImage(const QImage& image, const std::string& method) {
  const ExportSettings& settings = session_.settings;
  FileOutput files(session_, opened_);
  PaperOutput paper(session_, files, [&](const QPageLayout& layout, Progress&) {
    return std::make_unique<PicturePages>(image, layout);
  });
  if (const auto done = paper.CarryOut(method)) return *done;
  const std::string format = CanWriteImage(method) ? method : settings.imageFormat;
  const QString extension = ImageExtension(format);
  const QSize size(settings.imageWidth, settings.imageHeight);
  const QImage scaled =
      size.isEmpty() ? image : image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  return files.Save({"Picture", extension},
                    [&](Progress&) { return EncodeImage(scaled, extension).toStdString(); });
}

}  // namespace sentrel
