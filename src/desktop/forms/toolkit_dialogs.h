#pragma once

#include <QFileIconProvider>
#include <QObject>

namespace sentrel {

/// Icons and kinds of files by their names alone. The toolkit's own open every file of a folder and
/// read what is in it, on the event loop: of a pipe-like file under /proc the program never comes
/// back. Must outlive the dialog that it is set for.
class NameIcons : public QFileIconProvider {
 public:
  using QFileIconProvider::icon;
  QIcon icon(const QFileInfo& file) const override;
  QString type(const QFileInfo& file) const override;
};

/// Makes the toolkit's dialogs harmless for as long as this lives, also those that it opens itself:
/// a message box shows its text as it stands and every character of it (VisibleText), because the
/// name of a file in it may look like markup; a file dialog opens none of the files that it shows.
class ToolkitDialogs : public QObject {
 public:
  ToolkitDialogs();
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  NameIcons icons_;
};

}  // namespace sentrel
