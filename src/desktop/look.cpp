#include "desktop/look.h"

#include <QApplication>
#include <QProxyStyle>
#include <cstdlib>

namespace sentrel {
namespace {

/// Of 255 steps of grey.
constexpr int kReadable = 80;
constexpr double kBandShare = 0.06;
constexpr int kHalfOpaque = 128;

bool StandsOut(const QColor& color, const QColor& page) {
  const int opaque = std::abs(qGray(color.rgb()) - qGray(page.rgb()));
  return opaque * color.alpha() / 255 >= kReadable;
}

class PlainButtons : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override {
    return hint == SH_DialogButtonBox_ButtonsHaveIcons
               ? 0
               : QProxyStyle::styleHint(hint, option, widget, answer);
  }
};

/// The page with a little of the text in it, as every other row of a list has.
QColor Blend(const QColor& page, const QColor& text, double share) {
  const auto mix = [share](float of, float with) {
    return static_cast<float>(of + (with - of) * share);
  };
  return QColor::fromRgbF(mix(page.redF(), text.redF()), mix(page.greenF(), text.greenF()),
                          mix(page.blueF(), text.blueF()));
}

}  // namespace

QPalette ReadableColors(const QPalette& desktop) {
  const QColor page = desktop.color(QPalette::Base);
  QColor faint = desktop.color(QPalette::Text);
  faint.setAlpha(kHalfOpaque);
  const QColor link = qGray(page.rgb()) < kHalfOpaque ? QColor(0x7A, 0xB8, 0xFF) : Qt::blue;
  QPalette missing;
  missing.setResolveMask(0);
  const auto mend = [&](QPalette::ColorRole role, const QColor& readable) {
    if (!StandsOut(desktop.color(role), page)) missing.setColor(role, readable);
  };
  mend(QPalette::PlaceholderText, faint);
  mend(QPalette::Link, link);
  mend(QPalette::LinkVisited, link);
  const QColor text = desktop.color(QPalette::Text);
  if (!StandsOut(desktop.color(QPalette::AlternateBase), text)) {
    missing.setColor(QPalette::AlternateBase, Blend(page, text, kBandShare));
  }
  return missing;
}

void SetLook() {
  QApplication::setStyle(new PlainButtons);
  QApplication::setPalette(ReadableColors(QApplication::palette()));
}

}  // namespace sentrel
