#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QPaintDevice>
#include <QStringList>
#include <string>
#include <vector>

namespace sentrel {

/// Lays out text in the measures of one device.
class PageText {
 public:
  /// The device must outlive the object.
  PageText(const QFont& font, QPaintDevice& device)
      : font_(font), device_(&device), metrics_(font, &device) {}

  /// The width of the widest line, where lines are not wrapped; very long lines count in part.
  double Width(const std::string& text);
  /// The lines of the text, each at most so wide.
  QStringList Wrapped(const std::string& text, double width);

 private:
  double Advance(const QString& line);

  QFont font_;
  QPaintDevice* device_;
  QFontMetricsF metrics_;
  QHash<QString, double> advances_;  // of lines met before; most come again
};

/// Widths of columns that together fill the room. A column gets what it wants where that is at most
/// an equal share; the others share what is left, and the last gets what is spare.
std::vector<double> ShareWidth(const std::vector<double>& wanted, double room);

}  // namespace sentrel
