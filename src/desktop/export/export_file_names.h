#pragma once

#include <QString>

namespace sentrel {

/// The name with the extension (no dot) unless it ends in one of that kind of file already. What
/// follows another dot is a part of the name: "traps-2026.11.23".
QString WithExtension(const QString& filename, const QString& extension);

/// The file in its folder where that can be written to, and else in the other folder.
QString WritablePlace(const QString& filename, const QString& otherFolder);

/// The user's folder for documents, or the home folder where there is none.
QString UsersFolder();

/// The path of a file in the folder, with a number behind its name where that is taken.
QString FreePath(const QString& folder, const QString& name);

}  // namespace sentrel
