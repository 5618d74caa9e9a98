#include <QApplication>
#include <cstdlib>

#include "app/program.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  sentrel::Program program{sentrel::ProgramOptions{}};
  return program.Start() ? QApplication::exec() : EXIT_FAILURE;
}
