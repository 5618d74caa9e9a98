#pragma once

#include <QString>
#include <QWidget>
#include <optional>

namespace sentrel {

/// The name with the extension (no dot) where it has none.
QString WithExtension(const QString& filename, const QString& extension);

/// Asks for the file to write, starting from a suggestion whose folder may be read-only; asks again
/// before a file is replaced. Nothing when the user gives up.
std::optional<QString> AskFilename(QWidget* owner, const QString& suggestion,
                                   const QString& caption, const QString& extension);

/// The file in its folder where that can be written to, and else in the other folder.
QString WritablePlace(const QString& filename, const QString& otherFolder);

}  // namespace sentrel
