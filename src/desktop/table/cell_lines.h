#pragma once

#include <QFont>
#include <QString>
#include <string>
#include <vector>

namespace sentrel {

/// A line of a cell takes at most this many lines on the screen; an ellipsis replaces the rest.
inline constexpr int kMostWrappedLines = 8;

/// A cell has at most this many lines on the screen, however many its text has; an ellipsis
/// replaces the rest.
inline constexpr int kMostLines = 1000;

struct CellLine {
  QString text;
  /// In pixels.
  int width = 0;
};

/// The lines to paint for the text of a cell, each at most `width` pixels wide. What would
/// disturb the picture is shown instead of obeyed: characters that cannot be seen (VisibleText),
/// piles of marks.
std::vector<CellLine> CellLines(const std::string& text, const QFont& font, int width);

}  // namespace sentrel
