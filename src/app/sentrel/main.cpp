#include <QApplication>
#include <QTimer>
#include <cstdlib>

#include "app/program.h"
#include "desktop/look.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  sentrel::SetLook();
  sentrel::Program program{sentrel::ProgramOptions{}};
  // Started from within the event loop, so that the program can be asked to end at any time.
  QTimer::singleShot(0, &application, [&] {
    if (!program.Start()) QApplication::exit(EXIT_FAILURE);
  });
  return QApplication::exec();
}
