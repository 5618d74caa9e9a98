#include "desktop/window/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QMenu>
#include <QPainter>
#include <QPalette>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <utility>

namespace sentrel {
namespace {

/// Styles ask for the same picture for a button under the mouse and for the entry of a menu that is
/// highlighted; only the latter has the colour of a selection behind it.
bool IsHighlighted(QIcon::Mode mode) {
  const bool inMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr;
  return mode == QIcon::Selected || (mode == QIcon::Active && inMenu);
}

class TintedSvg : public QIconEngine {
 public:
  explicit TintedSvg(QString path) : path_(std::move(path)) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
    const QPalette colors = QGuiApplication::palette();
    if (IsHighlighted(mode)) {
      const QByteArray color = Name(colors.color(QPalette::Active, QPalette::HighlightedText));
      static const QRegularExpression anyColor("#[0-9a-f]{6}|currentColor");
      Render(painter, place, QString::fromLatin1(Svg()).replace(anyColor, color).toLatin1());
    } else {
      if (mode == QIcon::Disabled) painter->setOpacity(0.4);
      const QByteArray color = Name(colors.color(QPalette::Active, QPalette::WindowText));
      Render(painter, place, Svg().replace("currentColor", color));
    }
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
  QIconEngine* clone() const override { return new TintedSvg(path_); }

 private:
  QByteArray Svg() const {
    QFile file(path_);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
  }
  static QByteArray Name(const QColor& color) { return color.name().toLatin1(); }
  static void Render(QPainter* painter, const QRect& place, const QByteArray& svg) {
    QSvgRenderer(svg).render(painter, place);
  }

  QString path_;
};

}  // namespace

QIcon ToolIcon(std::string_view toolId) {
  const QString name = QString::fromLatin1(toolId.data(), static_cast<qsizetype>(toolId.size()));
  const QString path = ":/icons/tools/" + name.toLower().replace(':', '-') + ".svg";
  return QFile::exists(path) ? QIcon(new TintedSvg(path)) : QIcon();
}

QIcon ProgramIcon() {
  QSvgRenderer svg{QString(kProgramIcon)};
  QIcon icon;
  for (const int size : {16, 32, 64}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    svg.render(&painter);
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace sentrel
