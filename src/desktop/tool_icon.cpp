#include "desktop/tool_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <utility>

namespace sentrel {
namespace {

class TintedSvg : public QIconEngine {
 public:
  explicit TintedSvg(QByteArray svg) : svg_(std::move(svg)) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
    Tint(QGuiApplication::palette().color(QPalette::Active, QPalette::WindowText));
    if (mode == QIcon::Disabled) painter->setOpacity(0.4);
    renderer_.render(painter, place);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  bool isNull() override { return false; }
  QIconEngine* clone() const override { return new TintedSvg(svg_); }

 private:
  void Tint(const QColor& color) {
    if (color == tint_) return;
    tint_ = color;
    renderer_.load(QByteArray(svg_).replace("currentColor", color.name().toLatin1()));
  }

  QByteArray svg_;
  QColor tint_;
  QSvgRenderer renderer_;
};

}  // namespace

QIcon ToolIcon(std::string_view toolId) {
  const QString name = QString::fromLatin1(toolId.data(), static_cast<qsizetype>(toolId.size()));
  QFile file(":/icons/tools/" + name.toLower().replace(':', '-') + ".svg");
  if (!file.open(QFile::ReadOnly)) return {};
  return QIcon(new TintedSvg(file.readAll()));
}

}  // namespace sentrel
