#include "console/line_reader.h"

#include "console/session.h"
#include "tests/capture.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/// In the place of standard error: the hang-up comes as soon as the first byte is echoed.
ssize_t hangUp(void* /*cookie*/, const char* /*echo*/, std::size_t size) {
    sessionRunning = 0;
    return static_cast<ssize_t>(size);
}

/// What is left of "ab" in the input when a session has ended that hung up at the "a".
std::string leftAfterHangUp() {
    int input[2];
    if (pipe(input) != 0 || dup2(input[0], STDIN_FILENO) < 0 || write(input[1], "ab", 2) != 2) return "no pipe";
    stderr = fopencookie(nullptr, "w", {nullptr, hangUp, nullptr, nullptr});
    std::setvbuf(stderr, nullptr, _IONBF, 0);
    close(input[1]);
    SessionContext session;
    runLineReader(session);
    char rest[3]{};
    return {rest, static_cast<std::size_t>(std::max<ssize_t>(0, read(STDIN_FILENO, rest, sizeof rest)))};
}

TEST(LineReaderDeathTest, AHangUpIsSeenBeforeTheNextByte) {
    EXPECT_EXIT(std::exit(leftAfterHangUp() == "b" ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(SignalTest, EachSignalHasItsOwnMeaning) {
    const auto diagnose = [] { onSignal(10), onSignal(12); };
    EXPECT_EQ(fake_platform::capture(diagnose, stderr), "\x1b[1;31;36m[sighandler][644] ffffffffffff \x1b[0m \n");
    EXPECT_EQ(sessionRunning, 1);
    onSignal(1);
    EXPECT_EQ(sessionRunning, 0);
}

}  // namespace
