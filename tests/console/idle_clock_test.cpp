#include "console/idle.h"

#include <gtest/gtest.h>

TEST(IdleClockTest, ATimeoutOfZeroStopsTheAlternativeCount) {
    IdleClock clock;
    clock.startAlt(0);
    EXPECT_FALSE(clock.tickAlt() || clock.tickAlt());
    clock.change(2);
    EXPECT_FALSE(clock.tickAlt());
    EXPECT_TRUE(clock.tickAlt());
}

TEST(IdleClockTest, ATimeoutThatIsKnownAlreadyIsNewerThanTheOneAtTheStart) {
    IdleClock clock;
    clock.change(2);
    clock.start(100);
    EXPECT_FALSE(clock.tick());
    EXPECT_TRUE(clock.tick());
}
