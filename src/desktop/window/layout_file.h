#pragma once

#include <QByteArray>
#include <QString>

namespace sentrel {

/// The arrangement of the main window, as the toolkit packs it. Either part may be empty.
struct WindowLayout {
  QByteArray window;  // size and place
  QByteArray bands;   // position, visibility and order of the toolbars
};

/// The layout file is text, lines ended by LF:
///
///     Sentrel toolbars 1
///     window <base64>
///     bands <base64>
///     check <SHA-256 of the lines above, in hex>
///
/// Writing replaces the file in one step and makes its folder if need be. Throws Failure where that
/// cannot be done, and for a read-only file.
void WriteLayout(const QString& path, const WindowLayout& layout);

/// Throws Failure for a file that cannot be read, is of another version, or is not exactly as it
/// was written.
WindowLayout ReadLayout(const QString& path);

}  // namespace sentrel
