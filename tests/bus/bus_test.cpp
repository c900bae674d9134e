#include "host/base/start_program.h"
#include "host/bus/bus_config.h"
#include "platform/event_bus.h"
#include "platform/lpc.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

/// Runs `act`, which must fail; the name of its errno.
template <typename Act>
std::string errorOf(Act act) {
    errno = 0;
    EXPECT_NE(act(), 0);
    return strerrorname_np(errno);
}

/// Serves "echo", which answers with its text, on a thread of its own.
class TestService {
  public:
    explicit TestService(const char* name) : thread_([this, name] { serve(name); }) { isReady_.wait(false); }
    ~TestService() {
        stopping_ = true;
        thread_.join();
    }

  private:
    static void echo(lpc_request* request, void*) { lpc_request_completed(request, lpc_request_params(request)); }

    void serve(const char* name) {
        lpc_service* service = lpc_service_create(name, 0, "echo", echo, this);
        EXPECT_NE(service, nullptr);
        isReady_ = true;
        isReady_.notify_one();
        while (!stopping_) {
            pollfd input{lpc_service_fileno(service), POLLIN, 0};
            if (poll(&input, 1, 10) == 1 && lpc_service_on_connect(service) != 0) break;
        }
    }

    std::atomic<bool> isReady_ = false;
    std::atomic<bool> stopping_ = false;
    std::thread thread_;
};

/// The reply to a call; the error's name when it fails.
std::string ask(const char* service, const char* method, const char* text) {
    lpc_completion* completion = nullptr;
    if (lpc_proxy_call_with_reply(service, method, text, &completion) != 0) return strerrorname_np(errno);
    const bool isAnswered = lpc_completion_wait(completion, 5000) == 0;
    const std::string reply = isAnswered ? lpc_completion_data(completion) : strerrorname_np(errno);
    lpc_completion_destroy(completion);
    return reply;
}

/// On a bus of its own, which can be frozen.
class BusTest : public testing::Test {
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

TEST_F(BusTest, AFrozenBusDelaysNobodyForLong) {
    ASSERT_EQ(eventbus_publish("someChanged", "opens the connection"), 0);
    freezeBus();
    EXPECT_EQ(errorOf([] { return lpc_proxy_call("nobody", "echo", "x"); }), "ETIMEDOUT");
    const auto fillSocket = [large = std::string(400'000, 'x')] {
        int result = 0;
        for (int i = 0; i < 1000 && result == 0; ++i) result = eventbus_publish("largeChanged", large.c_str());
        return result;
    };
    EXPECT_EQ(errorOf(fillSocket), "ETIMEDOUT");
    const auto isRefused = [] { return lpc_service_create("frozen", 0, "m", nullptr, nullptr) == nullptr ? -1 : 0; };
    std::thread([&] {
        EXPECT_EQ(errorOf([] { return eventbus_publish("someChanged", "x"); }), "ETIMEDOUT");
        EXPECT_EQ(errorOf(isRefused), "ETIMEDOUT");
    }).join();
    thawBus();
    Listener listener("someChanged");
    EXPECT_EQ(eventbus_publish("someChanged", "again"), 0);
    EXPECT_EQ(listener.take(), "again") << "nothing that was reported as failed may come late";
}

TEST_F(BusTest, ThreadsDoNotDisturbEachOther) {
    const TestService service("someService");
    const auto work = [](const char* name) {
        Listener listener(name);
        for (int i = 0; i < 300; ++i) {
            const std::string text = name + std::to_string(i);
            ASSERT_EQ(eventbus_publish(name, text.c_str()), 0);
            ASSERT_EQ(ask("someService", "echo", text.c_str()), text);
            ASSERT_EQ(listener.take(), text);
        }
    };
    std::thread first(work, "first"), second(work, "second");
    first.join();
    second.join();
}

}  // namespace
