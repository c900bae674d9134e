/// A bus of the test's own, which can be frozen, and who listens there.
#pragma once

#include "host/base/start_program.h"
#include "host/bus/bus_config.h"
#include "platform/event_bus.h"

#include <csignal>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

class PrivateBus : public testing::Test {
  protected:
    void SetUp() override {
        const std::string config = "--config-file=" + host::writeBusConfig();
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const std::string told = "--print-address=" + std::to_string(ready[1]);
        daemon_ = host::startProgram({"/usr/bin/dbus-daemon", {"dbus-daemon", "--nofork", config, told}});
        close(ready[1]);
        char byte = 0;
        ASSERT_EQ(read(ready[0], &byte, 1), 1) << "dbus-daemon did not start";
        close(ready[0]);
    }

    void TearDown() override {
        kill(daemon_, SIGKILL);
        waitpid(daemon_, nullptr, 0);
    }

    void freezeBus() const { kill(daemon_, SIGSTOP); }
    void thawBus() const { kill(daemon_, SIGCONT); }

  private:
    pid_t daemon_ = -1;
};

/// Hears one event and keeps its payloads.
class Listener {
  public:
    explicit Listener(const char* event) : bus_(eventbus_open()) {
        const auto keep = [](void* self, const char* payload) {
            static_cast<Listener*>(self)->payloads_.emplace_back(payload);
        };
        EXPECT_TRUE(bus_ != nullptr && eventbus_subscribe(bus_, event, keep, this) == 0) << event;
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { eventbus_close(bus_); }

    /// The first payload not taken yet; fails the test when none comes.
    std::string take() {
        while (payloads_.empty()) {
            pollfd input{eventbus_fileno(bus_), POLLIN, 0};
            const bool hasCome = poll(&input, 1, 10'000) == 1 && eventbus_on_data_available(bus_) == 0;
            EXPECT_TRUE(hasCome) << "no event";
            if (!hasCome) return {};
        }
        std::string first = payloads_.front();
        payloads_.erase(payloads_.begin());
        return first;
    }

  private:
    eventbus* bus_;
    std::vector<std::string> payloads_;
};
