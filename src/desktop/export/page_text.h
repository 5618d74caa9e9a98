#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QStringList>
#include <string>
#include <vector>

namespace sentrel {

/// Measures and wraps text of one font, in the pixels of the font.
class PageText {
 public:
  explicit PageText(const QFont& font) : font_(font), metrics_(font) {}

  /// The width of a line; of a very long one, that of its beginning.
  double Width(const QString& line);
  /// The lines of the text, each at most `width` wide.
  QStringList Wrapped(const std::string& text, double width);

 private:
  QFont font_;
  QFontMetricsF metrics_;
  QHash<QString, double> widths_;  // of lines seen before; most occur again
};

/// The lines of a text as pages show them, at least one.
QStringList PageLines(const std::string& text);

}  // namespace sentrel
