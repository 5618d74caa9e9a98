// Any bytes as a layout file, and any bytes in a sound one: what is damaged is refused, what is
// sound comes back as it was, and the window can be seen wherever the file puts it. The toolbars'
// part is the toolkit's own, which it takes at its word: only the file's check guards that.

#include <QApplication>
#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QToolBar>
#include <cstdint>
#include <cstdlib>

#include "common/failure.h"
#include "desktop/window/layout_file.h"
#include "desktop/window/trap_window.h"

/// Fontconfig keeps what it has read of its configuration.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
  return "leak:libfontconfig";
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

struct Window {
  int argumentCount = 1;
  char name[8] = "Sentrel";
  char* arguments[2] = {name, nullptr};
  QApplication application{argumentCount, arguments};
  QTemporaryDir folder;
  QString file = folder.filePath("Sentrel.Toolbars");
  sentrel::Table table;
  sentrel::ToolBars tools;
  sentrel::StatusBar status;
  sentrel::TrapWindow window{table, tools, status};

  bool Load() {
    return sentrel::Attempt([this] { tools.LoadLayout(file.toStdString()); });
  }
  void CheckWindow() {
    Require(window.findChild<QToolBar*>() != nullptr);
    Require(window.screen()->virtualGeometry().intersects(window.geometry()));
    tools.SaveLayout(file.toStdString());
    Require(Load());
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Window* all = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return new Window;  // Qt is not taken down after main
  }();
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  QFile file(all->file);
  Require(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
  file.close();
  all->Load();

  const sentrel::WindowLayout layout{bytes.left(bytes.indexOf('|')), bytes};
  sentrel::WriteLayout(all->file, layout);
  const sentrel::WindowLayout again = sentrel::ReadLayout(all->file);
  Require(again.window == layout.window && again.bands == layout.bands);

  sentrel::WriteLayout(all->file, {layout.window, all->window.saveState()});
  Require(all->Load());
  all->CheckWindow();
  return 0;
}
