/// Processes of the tests' own.
#pragma once

#include <gtest/gtest.h>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

/// Starts `body` in a forked process, which ends with it; its status is 0 when nothing in it failed.
template <typename Body>
pid_t startChild(Body body) {
    const pid_t pid = fork();
    if (pid == 0) {
        body();
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    return pid;
}

inline bool isRunning(pid_t pid) {
    siginfo_t end = {};
    return waitid(P_PID, static_cast<id_t>(pid), &end, WEXITED | WNOHANG | WNOWAIT) == 0 && end.si_pid == 0;
}

/// Waits for the end of the child.
inline int statusOf(pid_t pid) {
    int status = -1;
    waitpid(pid, &status, 0);
    return status;
}

/// A value that this process shares with those it starts from now on.
template <typename T>
T& sharedWithChildren() {
    return *new (mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) T();
}
