#pragma once

#include <QTextBrowser>

namespace sentrel {

/// Shows the pages of one folder, and pages that list where in them words stand. Follows links
/// within the folder only.
class HelpView : public QTextBrowser {
  Q_OBJECT
 public:
  explicit HelpView(QWidget* parent);

  /// Empty until a page is shown.
  QString Folder() const { return folder_; }
  void ShowPage(const QUrl& page);
  void ShowHits(const QString& words);
  /// Marks the words wherever they stand on the page.
  void Mark(const QString& words);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

 private:
  QString HitPage(const QString& words) const;

  QString folder_;
};

}  // namespace sentrel
