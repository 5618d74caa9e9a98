#include "desktop/window/layout_file.h"

#include <QCryptographicHash>
#include <QFile>

#include "common/atomic_file.h"
#include "common/failure.h"

namespace sentrel {
namespace {

constexpr qint64 kLargestFile = 262'144;

QByteArray Packed(const WindowLayout& layout) {
  const QByteArray lines = "Sentrel toolbars 1\nwindow " + layout.window.toBase64() + "\nbands " +
                           layout.bands.toBase64() + "\n";
  const QByteArray check = QCryptographicHash::hash(lines, QCryptographicHash::Sha256).toHex();
  return lines + "check " + check + "\n";
}

QByteArray Part(const QList<QByteArray>& lines, qsizetype index) {
  const QByteArray line = lines.value(index);
  return QByteArray::fromBase64(line.mid(line.indexOf(' ') + 1));
}

}  // namespace

void WriteLayout(const QString& path, const WindowLayout& layout) {
  const std::string file = path.toStdString();
  MakeFolderFor(file);
  WriteFile(file, Packed(layout).toStdString());
}

WindowLayout ReadLayout(const QString& path) {
  QFile file(path);
  if (!file.open(QFile::ReadOnly)) throw Failure("The layout file cannot be read.");
  const QByteArray content = file.read(kLargestFile);
  const QList<QByteArray> lines = content.split('\n');
  WindowLayout layout{Part(lines, 1), Part(lines, 2)};
  if (Packed(layout) != content) throw Failure("The layout file is damaged.");
  return layout;
}

}  // namespace sentrel
