#include "desktop/table/frame_pacer.h"

#include <gtest/gtest.h>

#include <QTest>

namespace sentrel {
namespace {

TEST(FramePacer, IntervalsGrowWithTheRateOfRequests) {
  const std::pair<double, double> cases[] = {{0, 16},      {20, 16},      {1'000, 1'000 / 9.0},
                                             {5'000, 250}, {20'000, 500}, {1e9, 500}};
  for (const auto& [requests, interval] : cases) {
    EXPECT_NEAR(static_cast<double>(FrameInterval(requests).count()), interval, 1) << requests;
  }
}

TEST(FramePacer, AnyNumberOfRequestsGetsOneFrameAndNoneIsForgotten) {
  int frames = 0;
  FramePacer* asked = nullptr;
  FramePacer pacer([&] {
    if (++frames == 2) asked->Request();
  });
  asked = &pacer;
  for (int i = 0; i < 100; ++i) pacer.Request();
  EXPECT_EQ(frames, 0) << "frames are painted by the event loop";
  EXPECT_TRUE(QTest::qWaitFor([&] { return frames == 1; }));
  for (int i = 0; i < 100; ++i) pacer.Request();
  EXPECT_TRUE(QTest::qWaitFor([&] { return frames == 3; })) << "also one asked for by a frame";
  for (int i = 0; i < 100'000; ++i) pacer.Request();
  EXPECT_TRUE(QTest::qWaitFor([&] { return frames == 4; }));
  QElapsedTimer sinceStorm;
  sinceStorm.start();
  pacer.Request();
  EXPECT_TRUE(QTest::qWaitFor([&] { return frames == 5; }));
  EXPECT_GE(sinceStorm.elapsed(), 400) << "after a storm it takes its time";
}

}  // namespace
}  // namespace sentrel
