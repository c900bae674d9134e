/// A bus of the test's own in a device root of its own, which can be stopped, frozen and started again.
#pragma once

#include "platform/event_bus.h"

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/types.h>
#include <vector>

/// How long anything that must happen may take on a busy machine.
inline constexpr std::chrono::seconds patience{10};

class PrivateBus : public testing::Test {
  protected:
    static void SetUpTestSuite();

    void SetUp() override { startBus(); }
    void TearDown() override { stopBus(); }

    void startBus();
    void stopBus();
    void freezeBus();
    void thawBus();

  private:
    pid_t daemon_ = -1;
};

/// Hears one event and keeps its payloads.
class Listener {
  public:
    explicit Listener(const char* event);
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { eventbus_close(bus_); }

    /// Waits for what comes next; false with errno set when the bus is gone or nothing comes.
    bool waitForInput();

    /// The first payload not taken yet; fails the test when none comes.
    std::string take();

    eventbus* bus() { return bus_; }

  private:
    eventbus* bus_;
    std::vector<std::string> payloads_;
};

/// Polls until `isTrue()`, which fails the test when it never is.
void waitUntil(const std::function<bool()>& isTrue);

/// A child process that runs `file` with `arguments`. All it writes goes into one pipe, its READY_FD line as well.
class Program {
  public:
    Program(const std::string& file, const std::vector<std::string>& arguments);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() { stop(SIGKILL); }

    /// The next line of what it writes; empty at the end.
    std::string readLine();

    /// Its exit status, after its end. Negative: the signal that ended it.
    int wait();
    int stop(int signal);

  private:
    pid_t id_;
    FILE* output_;
};
