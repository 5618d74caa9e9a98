// A window of the same toolkit with a menu and a text and nothing else: what RunStart compares
// with. Says "ready" when its event loop runs.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTimer>
#include <cstdio>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  window.setCentralWidget(new QLabel("ready"));
  window.menuBar()->addMenu("File")->addAction("Exit");
  window.resize(900, 600);
  window.show();
  QTimer::singleShot(0, [] {
    std::puts("ready");
    QApplication::quit();
  });
  return QApplication::exec();
}
