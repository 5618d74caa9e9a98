#pragma once

#include <QString>

namespace sentrel {

/// The name with the extension (given without a dot), unless it already has one of that kind of
/// file. Any other dot is part of the name: "traps-2026.11.23".
QString WithExtension(const QString& filename, const QString& extension);

/// The file in its own folder if that is writable, else in the other folder.
QString WritablePlace(const QString& filename, const QString& otherFolder);

/// The user's Documents folder, or the home folder if there is none.
QString UsersFolder();

/// The path of a file in the folder, with a number added to its name if that is taken.
QString FreePath(const QString& folder, const QString& name);

}  // namespace sentrel
