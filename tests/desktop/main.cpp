#include <gmock/gmock.h>

#include <QApplication>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
