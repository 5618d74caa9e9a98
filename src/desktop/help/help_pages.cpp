#include "desktop/help/help_pages.h"

#include <QDir>
#include <QFile>
#include <QTextDocument>
#include <QUrlQuery>
#include <algorithm>

#include "common/failure.h"

namespace sentrel {
namespace {

constexpr int kExcerptLetters = 160;

QString ReadText(const QString& file) {
  QFile source(file);
  return source.open(QFile::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

/// Empty for a topic without a page.
QString PageOf(const QString& topic, const QString& folder) {
  const QStringList lines = ReadText(folder + "/" + kTopicFile).split('\n');
  for (const QString& line : lines) {
    const QStringList words = line.split(' ', Qt::SkipEmptyParts);
    if (!topic.isEmpty() && words.size() == 2 && words[0] == topic) return words[1].trimmed();
  }
  return {};
}

struct RankedHit {
  HelpHit hit;
  bool inTitle = false;
  int count = 0;
};

/// Whole words around the first place of the word, or from the start. The first line is left out:
/// it is the heading, which stands above the excerpt.
QString Excerpt(const QString& text, const QString& word) {
  const QString body = text.section('\n', 1).simplified();
  qsizetype from = body.indexOf(word, 0, Qt::CaseInsensitive) - kExcerptLetters / 3;
  from = from > 0 ? body.indexOf(' ', from) + 1 : 0;
  const qsizetype end = body.lastIndexOf(' ', from + kExcerptLetters);
  const bool whole = from + kExcerptLetters >= body.size();
  return (from > 0 ? "… " : "") + (whole ? body.mid(from) : body.mid(from, end - from) + " …");
}

/// The count is 0 where a word is missing.
RankedHit Rank(const QString& file, const QStringList& words) {
  QTextDocument page;
  page.setHtml(ReadText(file));
  const QString title = page.metaInformation(QTextDocument::DocumentTitle);
  const QString text = page.toPlainText();
  RankedHit ranked{{file, title, Excerpt(text, words[0])}};
  for (const QString& word : words) {
    const int count = static_cast<int>(text.count(word, Qt::CaseInsensitive));
    if (count == 0) return {};
    ranked.count += count;
    if (title.contains(word, Qt::CaseInsensitive)) ranked.inTitle = true;
  }
  return ranked;
}

}  // namespace

QUrl HelpPageAt(const std::string& address) {
  QString path = QString::fromStdString(address);
  if (!path.startsWith("file://")) throw Failure("Not a page on this machine: " + address);
  path.remove(0, QString("file://").size());
  const qsizetype mark = path.lastIndexOf('?');
  const QString query = mark < 0 ? QString() : path.mid(mark + 1);
  const QFileInfo entry(path.left(mark).replace('\\', '/'));
  if (!entry.isFile()) throw Failure("There is no file " + entry.filePath().toStdString());

  const QUrlQuery items(query);
  QString page = PageOf(items.queryItemValue("topic"), entry.path());
  if (page.isEmpty()) page = PageOf(items.queryItemValue("context"), entry.path());
  const QFileInfo file(page.isEmpty() ? entry.filePath() : entry.path() + "/" + page);
  if (!file.isFile()) throw Failure("There is no file " + file.filePath().toStdString());
  QUrl url = QUrl::fromLocalFile(file.absoluteFilePath());
  url.setQuery(query);
  return url;
}

std::vector<HelpHit> SearchHelp(const QString& folder, const QString& words) {
  const QStringList all = words.split(' ', Qt::SkipEmptyParts);
  std::vector<RankedHit> ranked;
  const QFileInfoList files = QDir(folder).entryInfoList({"*.html"}, QDir::Files, QDir::Name);
  for (const QFileInfo& file : files) {
    if (all.isEmpty()) break;
    RankedHit hit = Rank(file.filePath(), all);
    if (hit.count > 0) ranked.push_back(std::move(hit));
  }
  std::stable_sort(ranked.begin(), ranked.end(), [](const RankedHit& a, const RankedHit& b) {
    return a.inTitle != b.inTitle ? a.inTitle : a.count > b.count;
  });
  std::vector<HelpHit> hits;
  hits.reserve(ranked.size());
  for (RankedHit& hit : ranked) hits.push_back(std::move(hit.hit));
  return hits;
}

}  // namespace sentrel
