#include "desktop/export/send_to_targets.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QTextDocument>

#include "common/atomic_file.h"
#include "common/failure.h"
#include "desktop/export/export_file_names.h"

namespace sentrel {
namespace {

constexpr const char* kAttachment = "MailRecipient.MAPIMAIL";
constexpr const char* kContent = "MailContent";
constexpr const char* kDocuments = "MyDocuments";
constexpr const char* kOpen = "Open";
constexpr qsizetype kMostMailText = 60000;  // letters that fit on a command line
constexpr int kPatience = 5000;             // milliseconds

[[noreturn]] void Fail(const QString& reason) {
  throw Failure(reason.toStdString());
}

QString Tool(const QString& name) {
  QString path = QStandardPaths::findExecutable(name);
  if (path.isEmpty()) {
    Fail(QString("The program %1, through which the desktop is reached, is not installed.")
             .arg(name));
  }
  return path;
}

void Start(const QString& program, const QStringList& arguments) {
  if (!QProcess::startDetached(program, arguments)) {
    Fail(QString("The program %1 cannot be started.").arg(program));
  }
}

bool HasProgramFor(const QString& mimeType) {
  QProcess query;
  query.start(Tool("xdg-mime"), {"query", "default", mimeType});
  if (!query.waitForFinished(kPatience)) return false;
  return !query.readAllStandardOutput().trimmed().isEmpty();
}

void WriteMail(const QStringList& arguments) {
  const QString tool = Tool("xdg-email");
  if (!HasProgramFor("x-scheme-handler/mailto")) {
    Fail("There is no mail program on this system.");
  }
  Start(tool, arguments);
}

/// A web page as plain text; in a web archive the page follows the second header.
QString TextOf(const QString& filename) {
  QFile file(filename);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail(QString("Cannot read the file %1: %2.").arg(filename, file.errorString()));
  }
  QByteArray bytes = file.readAll();
  const QString kind = QFileInfo(filename).suffix().toLower();
  if (kind == "mhtml") {
    const auto start = bytes.indexOf("\r\n\r\n", bytes.indexOf("\r\n\r\n") + 4) + 4;
    bytes = QByteArray::fromBase64(bytes.mid(start, bytes.lastIndexOf("\r\n--") - start));
  }
  if (kind != "mhtml" && kind != "html") return QString::fromUtf8(bytes);
  QTextDocument page;
  page.setHtml(QString::fromUtf8(bytes));
  return page.toPlainText();
}

void MailContent(const QString& filename, const QString& title) {
  const QString text = TextOf(filename);
  if (text.size() > kMostMailText) {
    Fail("The table is too long for the text of a mail. Send it as a file instead.");
  }
  WriteMail({"--subject", title, "--body", text});
}

void CopyToDocuments(const QString& filename) {
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  QFile file(filename);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail(QString("Cannot read the file %1: %2.").arg(filename, file.errorString()));
  }
  if (!folder.mkpath(".")) Fail(QString("There is no folder %1.").arg(folder.path()));
  const QString copy = FreePath(folder.path(), QFileInfo(filename).fileName());
  WriteFile(copy.toStdString(), file.readAll().toStdString());
}

}  // namespace

std::vector<ExportChoice> SendTargets() {
  return {{kAttachment, "Mail Recipient"},
          {kContent, "Mail Recipient (as Text)"},
          {kDocuments, "Documents Folder"},
          {kOpen, "Program for this Kind of File"}};
}

void SendFile(const std::string& filename, const std::string& target, const std::string& title) {
  const QString file = QString::fromStdString(filename);
  const QString place = QString::fromStdString(target);
  const QString subject = QString::fromStdString(title);
  const auto is = [&](const char* key) { return place.compare(key, Qt::CaseInsensitive) == 0; };
  if (place.contains(".MAPIMAIL", Qt::CaseInsensitive)) {
    WriteMail({"--subject", subject, "--attach", file});
  } else if (is(kContent)) {
    MailContent(file, subject);
  } else if (is(kDocuments)) {
    CopyToDocuments(file);
  } else if (is(kOpen)) {
    OpenFile(filename);
  } else {
    Start(place, {file});
  }
}

void OpenFile(const std::string& filename) {
  const QString file = QString::fromStdString(filename);
  const QString tool = Tool("xdg-open");
  const QMimeType kind = QMimeDatabase().mimeTypeForFile(file);
  if (!HasProgramFor(kind.name())) {
    Fail(QString("There is no program on this system that opens the file %1 (%2).")
             .arg(file, kind.comment()));
  }
  Start(tool, {file});
}

}  // namespace sentrel
