#include "console/idle_clock.h"

#include <gtest/gtest.h>

namespace {

/// The seconds until the clock ends the session, at most `patience`; 0 when it does not end it.
int secondsLeft(IdleClock& clock, bool (IdleClock::*tick)() = &IdleClock::tick, int patience = 10000) {
    for (int second = 1; second <= patience; ++second) {
        if ((clock.*tick)()) return second;
    }
    return 0;
}

TEST(IdleClockTest, EndsAfterTheConfiguredSecondsSinceTheLastLine) {
    IdleClock clock;
    clock.start(3);
    EXPECT_EQ(secondsLeft(clock, &IdleClock::tick, 2), 0);
    clock.restart();
    EXPECT_EQ(secondsLeft(clock), 3);
}

TEST(IdleClockTest, NeverEndsForZeroAndForNoTimeout) {
    IdleClock none, zero;
    zero.start(0);
    EXPECT_EQ(secondsLeft(none), 0);
    EXPECT_EQ(secondsLeft(zero), 0);
}

TEST(IdleClockTest, AChangedTimeoutCountsFromTheNextLine) {
    IdleClock clock;
    clock.start(5);
    clock.change(2);
    EXPECT_EQ(secondsLeft(clock, &IdleClock::tick, 4), 0);
    clock.restart();
    EXPECT_EQ(secondsLeft(clock), 2);
}

TEST(IdleClockTest, TheAlternativeCountRestsAtZero) {
    IdleClock clock;
    clock.startAlt(0);
    EXPECT_EQ(secondsLeft(clock, &IdleClock::tickAlt), 0);
    clock.change(2);
    EXPECT_EQ(secondsLeft(clock, &IdleClock::tickAlt), 2);
}

}  // namespace
