#include "desktop/event_loop.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>
#include <thread>

namespace sentrel {
namespace {

using namespace std::chrono_literals;

/// Counts the runs of a job, which wants to run again at once as often as it is told.
struct WakeupTest : testing::Test {
  std::function<bool()> Job() {
    return [this] {
      EXPECT_EQ(std::this_thread::get_id(), eventLoop);
      if (++runs == 1 && wokenByItself) wokenByItself->Wake();
      return again-- > 0;
    };
  }
  void ProcessEvents() {
    for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
  }

  const std::thread::id eventLoop = std::this_thread::get_id();
  int runs = 0;
  int again = 0;
  Wakeup* wokenByItself = nullptr;
};

TEST_F(WakeupTest, CallsOfOtherThreadsBecomeOneRunOnTheEventLoop) {
  Wakeup wakeup(Job());
  for (const int expected : {1, 2}) {
    std::thread([&] {
      for (int i = 0; i < 1000; ++i) wakeup.Wake();
    }).join();
    EXPECT_EQ(runs, expected - 1) << "nothing runs on the thread that calls";
    EXPECT_TRUE(QTest::qWaitFor([&] { return runs == expected; }));
    ProcessEvents();
    EXPECT_EQ(runs, expected);
  }
}

TEST_F(WakeupTest, WhoeverCallsDuringTheRestIsServedAtItsEnd) {
  Wakeup longRest(Job(), 1h);
  longRest.Wake();
  ProcessEvents();
  EXPECT_EQ(runs, 1) << "at once after a quiet time";
  longRest.Wake();
  ProcessEvents();
  EXPECT_EQ(runs, 1);

  Wakeup shortRest(Job(), 30ms);
  shortRest.Wake();
  ASSERT_TRUE(QTest::qWaitFor([&] { return runs == 2; }));
  QElapsedTimer rest;
  rest.start();
  shortRest.Wake();
  EXPECT_TRUE(QTest::qWaitFor([&] { return runs == 3; }));
  EXPECT_GE(rest.elapsed(), 29);
}

TEST_F(WakeupTest, ACallDuringTheJobIsNotLost) {
  Wakeup wakeup(Job());
  wokenByItself = &wakeup;
  wakeup.Wake();
  EXPECT_TRUE(QTest::qWaitFor([&] { return runs == 2; }));
}

TEST_F(WakeupTest, AJobThatWantsToRunAgainLetsWaitingEventsPass) {
  std::vector<int> runsAtEvents;
  again = 2;
  Wakeup wakeup(Job(), 1h);
  wakeup.Wake();
  QMetaObject::invokeMethod(
      &wakeup, [&] { runsAtEvents.push_back(runs); }, Qt::QueuedConnection);
  ProcessEvents();
  EXPECT_EQ(runs, 3) << "without a rest";
  EXPECT_EQ(runsAtEvents, std::vector{1});
}

}  // namespace
}  // namespace sentrel
