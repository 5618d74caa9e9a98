#include <QApplication>

#include "app/program.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  sentrel::Program program{sentrel::ProgramOptions{}};
  return program.Run();
}
