#include "desktop/help/help_view.h"

#include <QFileInfo>

#include "desktop/help/help_pages.h"

namespace sentrel {
namespace {

constexpr const char* kSearchScheme = "search";
constexpr int kMargin = 20;

}  // namespace

HelpView::HelpView(QWidget* parent) : QTextBrowser(parent) {
  setObjectName("Page");
  setFrameShape(QFrame::NoFrame);
  document()->setDocumentMargin(kMargin);
}

void HelpView::ShowPage(const QUrl& page) {
  folder_ = QFileInfo(page.toLocalFile()).absolutePath();
  setSource(page);
}

void HelpView::ShowHits(const QString& words) {
  QUrl address;
  address.setScheme(kSearchScheme);
  address.setPath(words);
  setSource(address);
}

void HelpView::Mark(const QString& words) {
  QTextCharFormat format;
  format.setBackground(palette().highlight());
  format.setForeground(palette().highlightedText());
  QList<QTextEdit::ExtraSelection> marks;
  const QStringList all = words.split(' ', Qt::SkipEmptyParts);
  for (const QString& word : all) {
    for (QTextCursor found = document()->find(word); !found.isNull();
         found = document()->find(word, found)) {
      marks.push_back({found, format});
    }
  }
  setExtraSelections(marks);
}

QVariant HelpView::loadResource(int type, const QUrl& name) {
  if (name.scheme() == kSearchScheme) return HitPage(name.path());
  return QTextBrowser::loadResource(type, name);
}

void HelpView::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  const QUrl url = source().resolved(name);
  const bool within = QFileInfo(url.toLocalFile()).absolutePath() == folder_;
  if (within || url.scheme() == kSearchScheme) QTextBrowser::doSetSource(url, type);
}

QString HelpView::HitPage(const QString& words) const {
  const std::vector<HelpHit> hits = SearchHelp(folder_, words);
  const QString shown = words.toHtmlEscaped();
  QString page = "<html><head><title>Search</title></head><body><h1>" + shown + "</h1>";
  page += hits.empty() ? QString("<p>No page has all of these words.</p>")
                       : QString("<p>Pages with these words: %1</p>").arg(hits.size());
  for (const HelpHit& hit : hits) {
    page += QString("<p><a href=\"%1\">%2</a><br/>%3</p>")
                .arg(QUrl::fromLocalFile(hit.file).toString(QUrl::FullyEncoded).toHtmlEscaped(),
                     hit.title.toHtmlEscaped(), hit.excerpt.toHtmlEscaped());
  }
  return page + "</body></html>";
}

}  // namespace sentrel
