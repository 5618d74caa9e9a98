#include "desktop/look.h"

#include <gtest/gtest.h>

namespace sentrel {
namespace {

QPalette Desktop(const QColor& page, const QColor& text) {
  QPalette palette(Qt::lightGray);
  palette.setColor(QPalette::Base, page);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
  palette.setColor(QPalette::Link, Qt::blue);
  palette.setColor(QPalette::LinkVisited, Qt::darkMagenta);
  return palette;
}

TEST(Look, MendsWhatADarkDesktopLeavesAsItIsOnALightOneAndNothingElse) {
  EXPECT_EQ(ReadableColors(Desktop(Qt::white, Qt::black)).resolveMask(), 0U);
  for (const char* dark : {"black", "#1b1e20", "#2d2d2d", "#3b4252"}) {
    const QPalette mended = ReadableColors(Desktop(dark, Qt::white));
    for (const auto role : {QPalette::PlaceholderText, QPalette::Link, QPalette::LinkVisited}) {
      EXPECT_TRUE(mended.isBrushSet(QPalette::Active, role)) << dark << role;
      EXPECT_GT(mended.color(role).lightness(), 180) << dark << role;
    }
    EXPECT_LT(mended.color(QPalette::AlternateBase).lightness(), 100) << dark;
    EXPECT_FALSE(mended.isBrushSet(QPalette::Active, QPalette::Text)) << dark;
  }
}

}  // namespace
}  // namespace sentrel
