#include "desktop/table/frame_pacer.h"

#include <gtest/gtest.h>

#include <QTest>

namespace sentrel {
namespace {

TEST(FramePacer, FramesAreRareInAStorm) {
  int frames = 0;
  FramePacer pacer([&] { ++frames; });
  QElapsedTimer time;
  time.start();
  int requests = 0;
  while (time.elapsed() < 200) {
    pacer.Request();
    ++requests;
    QCoreApplication::processEvents();
  }
  EXPECT_GE(frames, 1);
  EXPECT_LE(frames, time.elapsed() / 50 + 1) << requests << " requests";
}

TEST(FramePacer, TheLastRequestIsNeverForgotten) {
  int wanted = 0;
  int shown = 0;
  FramePacer pacer([&] { shown = wanted; });
  for (; wanted < 50; ++wanted) pacer.Request();
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown == wanted; }));
}

}  // namespace
}  // namespace sentrel
