#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace sentrel {

/// A kind of file, for people, and its extension without a dot.
struct FileKind {
  QString caption;
  QString extension;
};

/// Asks for the file to write, starting from a suggestion whose folder may be read-only, and writes
/// it. If `write` returns false, having told why, or if the user keeps an existing file, it asks
/// again with everything as it was chosen. False if the user cancels. Throws what `write` throws.
bool SaveAs(QWidget* owner, const QString& suggestion, const FileKind& kind,
            const std::function<bool(const QString& filename)>& write);

}  // namespace sentrel
