#include "platform/lpc.h"
#include "tests/bus/private_bus.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <list>
#include <memory>
#include <thread>

namespace {

std::string everyByte() {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

/// Runs `act`, which must fail; the name of its errno.
template <typename Act>
std::string errorOf(Act act) {
    errno = 0;
    EXPECT_NE(act(), 0);
    return strerrorname_np(errno);
}

/// Serves "echo" (answers with its text), "silent" (keeps the requests) and "release" (answers all those kept) under a
/// service name, on a thread of its own.
class TestService {
  public:
    explicit TestService(const char* name) : thread_([this, name] { serve(name); }) { isReady_.wait(false); }
    ~TestService() { stop(); }

    void stop() {
        stopping_ = true;
        if (thread_.joinable()) thread_.join();
    }

  private:
    static void echo(lpc_request* request, void*) { lpc_request_completed(request, lpc_request_params(request)); }

    static void keep(lpc_request* request, void* self) { static_cast<TestService*>(self)->kept_.push_back(request); }

    static void release(lpc_request* request, void* self) {
        for (lpc_request* kept : static_cast<TestService*>(self)->kept_) lpc_request_completed(kept, "late");
        static_cast<TestService*>(self)->kept_.clear();
        lpc_request_completed(request, nullptr);
    }

    void serve(const char* name) {
        lpc_service* service = lpc_service_create(name, 0, "echo", echo, this);
        EXPECT_NE(service, nullptr);
        lpc_service_create(name, 0, "silent", keep, this);
        lpc_service_create(name, 0, "release", release, this);
        isReady_ = true;
        isReady_.notify_one();
        while (!stopping_) {
            pollfd input{lpc_service_fileno(service), POLLIN, 0};
            if (poll(&input, 1, 10) == 1 && lpc_service_on_connect(service) != 0) break;
        }
        for (lpc_request* request : kept_) lpc_request_completed(request, nullptr);
    }

    std::list<lpc_request*> kept_;
    std::atomic<bool> isReady_ = false;
    std::atomic<bool> stopping_ = false;
    std::thread thread_;
};

struct DestroyCompletion {
    void operator()(lpc_completion* completion) const { lpc_completion_destroy(completion); }
};
using Completion = std::unique_ptr<lpc_completion, DestroyCompletion>;

Completion begin(const char* service, const char* method, const char* text) {
    lpc_completion* completion = nullptr;
    EXPECT_EQ(lpc_proxy_call_with_reply(service, method, text, &completion), 0) << std::strerror(errno);
    return Completion(completion);
}

/// The reply to a call; the error's name in brackets when it fails.
std::string ask(const char* service, const char* method, const char* text) {
    const Completion completion = begin(service, method, text);
    if (lpc_completion_wait(completion.get(), 5000) != 0) return strerrorname_np(errno);
    return lpc_completion_data(completion.get());
}

class BusTest : public PrivateBus {};

TEST_F(BusTest, EventsArriveWholeAndInOrder) {
    Listener listener("someChanged"), other("otherChanged");
    const std::string bytes = everyByte();
    constexpr int count = 2000;
    for (int i = 0; i < count; ++i) ASSERT_EQ(eventbus_publish("someChanged", (bytes + std::to_string(i)).c_str()), 0);
    ASSERT_EQ(eventbus_publish("otherChanged", ""), 0);
    for (int i = 0; i < count; ++i) ASSERT_EQ(listener.take(), bytes + std::to_string(i));
    EXPECT_EQ(other.take(), "");
}

TEST_F(BusTest, RepliesArriveWhole) {
    const TestService service("someService");
    EXPECT_EQ(ask("someService", "echo", everyByte().c_str()), everyByte());
    const std::string large(400'000, 'x');
    EXPECT_EQ(ask("someService", "echo", large.c_str()), large);
    EXPECT_EQ(ask("someService", "release", ""), "");
    EXPECT_EQ(lpc_proxy_call("someService", "echo", ""), 0);
}

TEST_F(BusTest, CallsNobodyAnswersFail) {
    EXPECT_EQ(errorOf([] { return lpc_proxy_call("nobody", "echo", "x"); }), "ENXIO");

    TestService service("someService");
    EXPECT_EQ(errorOf([] { return lpc_proxy_call("someService", "unknown", "x"); }), "EBADR");
    EXPECT_EQ(errorOf([] { return lpc_proxy_call("someService", "silent", "x"); }), "ETIMEDOUT");

    const Completion silent = begin("someService", "silent", "x");
    EXPECT_EQ(errorOf([&] { return lpc_completion_wait(silent.get(), 20); }), "ETIMEDOUT");
    EXPECT_EQ(lpc_completion_data(silent.get()), nullptr);
    EXPECT_EQ(ask("someService", "release", ""), "");
    EXPECT_EQ(ask("someService", "echo", "mine"), "mine") << "the late reply must not be taken for this one";
    EXPECT_EQ(lpc_completion_wait(silent.get(), 5000), 0);
    EXPECT_STREQ(lpc_completion_data(silent.get()), "late");

    const Completion orphan = begin("someService", "silent", "x");
    lpc_completion_wait(orphan.get(), 20);
    service.stop();
    EXPECT_EQ(lpc_completion_wait(orphan.get(), 5000), 0) << "answered at the service's end";
}

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
