/// What platform/*.h promises, tried on whatever platform this program is linked with. It needs nothing but those
/// headers, GoogleTest, json-c and the device's libraries, so that whoever carries the console to a device can run it
/// there: what fails is followed by what the console would do wrong. It writes below "platformTest" in both stores and
/// offers the service "platformTest"; what it has written stays there.
#include "platform/event_bus.h"
#include "platform/factory_data.h"
#include "platform/json_token.h"
#include "platform/logger.h"
#include "platform/lpc.h"
#include "platform/shell.h"
#include "platform/user_config.h"
#include "platform/user_status.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int patience = 10'000;  // milliseconds

std::string everyByte() {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

struct Release {
    void operator()(char* text) const { free(text); }
    void operator()(json_token* token) const { json_token_ref_put(token); }
    void operator()(eventbus* bus) const { eventbus_close(bus); }
    void operator()(lpc_completion* completion) const { lpc_completion_destroy(completion); }
};
template <typename T>
using Owned = std::unique_ptr<T, Release>;

/// Runs `act`, which must fail and say why; its result.
template <typename Act>
auto failing(Act act) {
    errno = 0;
    const auto result = act();
    EXPECT_NE(errno, 0) << "no errno: the console's diagnostics would say \"Success\"";
    return result;
}

/// Subscribes to some events, on this thread.
class Listener {
  public:
    explicit Listener(std::initializer_list<const char*> events) : bus_(eventbus_open()) {
        EXPECT_NE(bus_, nullptr) << "no console would show a change: " << std::strerror(errno);
        for (const char* event : events) subscribe(event);
        subscribe(marker);
        // A subscription may take effect a little later.
        for (int i = 0; i < patience / 100 && !receive(100); ++i) eventbus_publish(marker, "");
        events_.clear();
    }

    /// "EVENT PAYLOAD" of all that was published so far.
    std::deque<std::string> takeEvents() {
        const std::string end = std::to_string(reinterpret_cast<std::uintptr_t>(this));
        EXPECT_EQ(eventbus_publish(marker, end.c_str()), 0);
        bool hasCome = true;
        while (hasCome && std::ranges::count(events_, marker + (" " + end)) == 0) hasCome = receive(patience);
        EXPECT_TRUE(hasCome) << "an event is lost: consoles would not show what others change";
        std::erase_if(events_, [](const std::string& event) { return event.starts_with(marker); });
        return std::exchange(events_, {});
    }

  private:
    static constexpr char marker[] = "platformTestMarker";

    struct Subscription {
        Listener* listener;
        const char* event;
    };

    static void keep(void* subscription, const char* payload) {
        const auto* to = static_cast<const Subscription*>(subscription);
        to->listener->events_.push_back(std::string(to->event) + " " + payload);
    }

    void subscribe(const char* event) {
        EXPECT_EQ(eventbus_subscribe(bus_.get(), event, keep, &subscriptions_.emplace_back(Subscription{this, event})),
                  0);
    }

    /// Takes in what comes within the limit; true when something did.
    bool receive(int limit) {
        const std::size_t before = events_.size();
        pollfd input{eventbus_fileno(bus_.get()), POLLIN, 0};
        while (events_.size() == before && poll(&input, 1, limit) == 1) {
            if (eventbus_on_data_available(bus_.get()) != 0) break;
            input.fd = eventbus_fileno(bus_.get());
        }
        return events_.size() > before;
    }

    Owned<eventbus> bus_;
    std::deque<Subscription> subscriptions_;
    std::deque<std::string> events_;
};

using Events = std::deque<std::string>;

// The stores

struct StoreCalls {
    int (*update)(const char* document);
    int (*queryBoolean)(const char* query, int* value);
    int (*queryInt)(const char* query, int* value);
    int (*queryString)(const char* query, char** value);
    json_token* (*queryToken)(const char* query);
    const char* event;
};

class Stores : public testing::TestWithParam<StoreCalls> {
  protected:
    static constexpr char fresh[] =
        R"({"platformTest":{"on":true,"number":-7,"text":"old","list":["a","b","c"],"deep":{"x":1,"y":2}}})";

    void SetUp() override { ASSERT_EQ(store.update(fresh), 0) << "no setting could be changed"; }

    static std::string below(const std::string& member) { return R"({"platformTest":{)" + member + "}}"; }

    /// The number of a leaf, or -1.
    int number(const std::string& member) const {
        int value = -1;
        store.queryInt(below(member).c_str(), &value);
        return value;
    }

    std::string text(const std::string& member) const {
        char* value = nullptr;
        store.queryString(below(member).c_str(), &value);
        const Owned<char> owned(value);
        return value != nullptr ? value : "none";
    }

    const StoreCalls& store = GetParam();
};

TEST_P(Stores, AnswerByTypeAndLeaveTheValueElse) {
    int truth = 5, number = 5;
    char* text = nullptr;
    EXPECT_NE(store.queryBoolean(below(R"("on":false)").c_str(), &truth), 0);
    EXPECT_EQ(truth, 1) << "switches would show another state";
    for (const std::string& query :
         {below(R"("number":0)") + "} more", below(R"("number":"","on":{}},"other":{"x":0)")}) {
        number = 5;
        EXPECT_NE(store.queryInt(query.c_str(), &number), 0) << "text follows some queries: " << query;
        EXPECT_EQ(number, -7);
    }
    EXPECT_EQ(this->text(R"("text":"")"), "old");
    truth = number = 5;
    for (const char* other :
         {R"("text":"")", R"("none":0)", R"("deep":0)", R"("deep":{"z":0})", R"("list":0)", R"("list":[0])"}) {
        EXPECT_EQ(store.queryBoolean(below(other).c_str(), &truth), 0) << other << " would pass for a switch";
        EXPECT_EQ(store.queryInt(below(other).c_str(), &number), 0) << other << " would pass for a number";
    }
    for (const char* other : {R"("on":"")", R"("number":"")", R"("none":"")", R"("deep":"")"}) {
        EXPECT_EQ(store.queryString(below(other).c_str(), &text), 0) << other << " would pass for a text";
    }
    ASSERT_EQ(store.update(below(R"("number":4294967297)").c_str()), 0);
    EXPECT_EQ(store.queryInt(below(R"("number":0)").c_str(), &number), 0) << "a number too large would be shown cut";
    for (const char* wrong :
         {"", "x", "[]", "5", "{}", R"({"platformTest":)", R"({"platformTest":{"number":{"x":0}}})"})
        EXPECT_EQ(store.queryInt(wrong, &number), 0) << wrong;
    EXPECT_EQ(truth, 5) << "a failed query would change what the console knows";
    EXPECT_EQ(number, 5);
    EXPECT_EQ(text, nullptr);
}

TEST_P(Stores, ShowTreesBelowTheirTopKey) {
    const Owned<json_token> deep(store.queryToken(below(R"("deep":{})").c_str()));
    ASSERT_NE(deep, nullptr) << "accounts could not be listed";
    EXPECT_EQ(json_token_object_walk_get_int(deep.get(), "platformTest.deep.y", 0), 2);
    const Owned<json_token> list(store.queryToken(below(R"("list":[])").c_str()));
    ASSERT_NE(list, nullptr);
    EXPECT_STREQ(json_token_object_walk_get_string(list.get(), "platformTest.list[2]", ""), "c");
    EXPECT_EQ(Owned<json_token>(store.queryToken(below(R"("none":{})").c_str())), nullptr);
    ASSERT_EQ(store.update(below(R"("a/b":{"~1":6})").c_str()), 0);
    const Owned<json_token> signs(store.queryToken(below(R"("a/b":{})").c_str()));
    ASSERT_NE(signs, nullptr);
    EXPECT_EQ(json_token_object_walk_get_int(signs.get(), "platformTest.a/b.~1", 0), 6) << "a key would be another";
}

TEST_P(Stores, MergeInOneStepAndArraysAsAWhole) {
    ASSERT_EQ(store.update(below(R"("deep":{"y":3},"list":["d"])").c_str()), 0);
    EXPECT_EQ(number(R"("deep":{"x":0})"), 1) << "one setting would reset its neighbours";
    EXPECT_EQ(number(R"("deep":{"y":0})"), 3);
    ASSERT_EQ(store.update(below(R"("deep":{})").c_str()), 0);
    EXPECT_EQ(number(R"("deep":{"y":0})"), 3) << "an empty object holds no leaf";
    const Owned<json_token> list(store.queryToken(below(R"("list":[])").c_str()));
    EXPECT_EQ(json_token_array_length(json_token_object_walk_get_array(list.get(), "platformTest.list")), 1)
        << "a deleted account would stay";
    ASSERT_EQ(store.update(below(R"("deep":4,"text":{"x":5})").c_str()), 0);
    EXPECT_EQ(number(R"("deep":0)"), 4) << "a leaf takes the place of an object";
    EXPECT_EQ(number(R"("deep":{"x":0})"), -1);
    EXPECT_EQ(number(R"("text":{"x":0})"), 5) << "an object takes the place of a leaf";
}

TEST_P(Stores, RefuseWhatIsNoDocument) {
    for (const char* wrong : {"", "7", R"({"platformTest":{"number":1)", R"({"platformTest":{"number":1}} x)"}) {
        EXPECT_NE(failing([&] { return store.update(wrong); }), 0) << wrong << " would be confirmed and not stored";
    }
    EXPECT_EQ(number(R"("number":0)"), -7);
}

TEST_P(Stores, KeepTextsOfAnyBytes) {
    std::string document = R"("text":"\u0001\t\\\" )", expected = "\x01\t\\\" ";
    for (const char* piece : {"\x80", "\xff\xfe", "caf\xe9", "\xc3\xa9"}) {
        document += piece;
        expected += piece;
    }
    ASSERT_EQ(store.update(below(document + '"').c_str()), 0) << "an operator's bytes would be refused";
    EXPECT_EQ(text(R"("text":"")"), expected) << "an operator's bytes would be shown otherwise than typed";
}

TEST_P(Stores, AnnounceWhatChangedAndNothingElse) {
    Listener listener({store.event});
    const std::string change = R"({"platformTest":{"deep":{"x":9}}})";
    ASSERT_EQ(store.update(change.c_str()), 0);
    const Events announced = listener.takeEvents();
    ASSERT_EQ(announced.size(), 1U) << "consoles would show a change " << announced.size() << " times";
    const std::string payload = announced[0].substr(std::strlen(store.event) + 1);
    const Owned<json_token> told(json_token_parse(payload.c_str()));
    ASSERT_NE(told, nullptr) << payload;
    EXPECT_EQ(json_token_object_walk_get_int(told.get(), "platformTest.deep.x", 0), 9) << payload;
    EXPECT_EQ(json_token_object_walk_get_object(told.get(), "platformTest.list"), nullptr);
    ASSERT_EQ(store.update(change.c_str()), 0);
    EXPECT_NE(store.update("no document"), 0);
    EXPECT_EQ(listener.takeEvents(), Events()) << "consoles would show an unchanged setting twice";
    for (int i = 0; i < 50; ++i) store.update(below(R"("number":)" + std::to_string(i)).c_str());
    const Events counted = listener.takeEvents();
    ASSERT_EQ(counted.size(), 50U);
    for (std::size_t i = 0; i < counted.size(); ++i) {
        EXPECT_NE(counted[i].find(std::to_string(i)), std::string::npos) << "the last value shown would be an old one";
    }
}

constexpr StoreCalls settings = {
    user_config_update,       user_config_query_boolean,       user_config_query_int,
    user_config_query_string, user_config_query_to_json_token, "platformTestUserConfigChanged"};
constexpr StoreCalls status = {
    user_status_update,       user_status_query_boolean,       user_status_query_int,
    user_status_query_string, user_status_query_to_json_token, "platformTestStatusConfigChanged"};
INSTANTIATE_TEST_SUITE_P(Settings, Stores, testing::Values(settings));
INSTANTIATE_TEST_SUITE_P(Status, Stores, testing::Values(status));

TEST(Status, ReadsNumbersAsDoubles) {
    ASSERT_EQ(user_status_update(R"({"platformTest":{"time":1700000000.5,"number":3,"text":"3"}})"), 0);
    double value = 0;
    EXPECT_NE(user_status_query_double(R"({"platformTest":{"time":0}})", &value), 0);
    EXPECT_EQ(value, 1700000000.5) << "the uptime would be wrong";
    EXPECT_NE(user_status_query_double(R"({"platformTest":{"number":0}})", &value), 0);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(user_status_query_double(R"({"platformTest":{"text":0}})", &value), 0);
}

// The event bus

TEST(EventBus, CarriesAnyBytesInOrderToThoseWhoAsked) {
    Listener listener({"platformTestEvent"});
    const std::string bytes = everyByte();
    Events expected;
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(eventbus_publish("platformTestEvent", (bytes + std::to_string(i)).c_str()), 0);
        ASSERT_EQ(eventbus_publish("platformTestOther", "x"), 0) << "nobody has to listen";
        expected.push_back("platformTestEvent " + bytes + std::to_string(i));
    }
    ASSERT_EQ(eventbus_publish("platformTestEvent", ""), 0);
    expected.push_back("platformTestEvent ");
    EXPECT_EQ(listener.takeEvents(), expected) << "consoles would miss changes or show them in another order";
    eventbus_close(nullptr);
}

/// Where the one who runs this knows the process of the bus.
TEST(EventBus, FailsInBoundedTimeWhileItStandsStill) {
    const char* process = std::getenv("PLATFORM_TEST_BUS");
    if (process == nullptr) GTEST_SKIP() << "PLATFORM_TEST_BUS is not set";
    const auto publish = [](const char* event, const std::string& text) {
        return eventbus_publish(event, text.c_str());
    };
    kill(std::atoi(process), SIGSTOP);
    const auto start = std::chrono::steady_clock::now();
    const std::string large(400'000, 'x');
    int events = 1000;
    while (publish("platformTestOther", large) == 0 && --events > 0) continue;
    EXPECT_EQ(errno, ETIMEDOUT) << "a console would hang that tells of a change";
    std::thread([&] { EXPECT_NE(failing([&] { return publish("platformTestEvent", "refused"); }), 0); }).join();
    EXPECT_NE(failing([] { return lpc_proxy_call("platformTest", "echo", "x"); }), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    kill(std::atoi(process), SIGCONT);
    Listener listener({"platformTestEvent"});
    EXPECT_EQ(publish("platformTestEvent", "again"), 0);
    EXPECT_EQ(listener.takeEvents(), Events{"platformTestEvent again"})
        << "what was reported as failed would come late";
}

// The LPC bus

/// Serves "echo" at once, "busy" after a while, "keep" never, and "release", which answers what was kept, on a thread.
class Service {
  public:
    Service() : thread_([this] { serve(); }) { isReady_.wait(false); }
    ~Service() {
        isStopping_ = true;
        thread_.join();
    }
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

  private:
    static void echo(lpc_request* request, void*) { lpc_request_completed(request, lpc_request_params(request)); }

    static void busy(lpc_request* request, void*) {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        lpc_request_completed(request, nullptr);
    }

    static void keep(lpc_request* request, void* self) { static_cast<Service*>(self)->kept_.push_back(request); }

    static void release(lpc_request* request, void* self) {
        for (lpc_request* kept : static_cast<Service*>(self)->kept_) lpc_request_completed(kept, "late");
        static_cast<Service*>(self)->kept_.clear();
        lpc_request_completed(request, nullptr);
    }

    void serve() {
        const std::pair<const char*, lpc_handler> methods[] = {
            {"echo", echo}, {"busy", busy}, {"keep", keep}, {"release", release}};
        std::deque<lpc_service*> services;
        for (const auto& [method, handler] : methods) {
            services.push_back(lpc_service_create("platformTest", 0, method, handler, this));
            EXPECT_NE(services.back(), nullptr) << "no relay on ports 9001 and 9002: " << std::strerror(errno);
        }
        isReady_ = true;
        isReady_.notify_one();
        while (!isStopping_) serveOnce(services);
    }

    static void serveOnce(const std::deque<lpc_service*>& services) {
        std::vector<pollfd> inputs;
        for (lpc_service* service : services) inputs.push_back({lpc_service_fileno(service), POLLIN, 0});
        if (poll(inputs.data(), inputs.size(), 10) < 1) return;
        for (lpc_service* service : services) EXPECT_EQ(lpc_service_on_connect(service), 0);
    }

    std::deque<lpc_request*> kept_;
    std::atomic<bool> isReady_ = false;
    std::atomic<bool> isStopping_ = false;
    std::thread thread_;
};

/// A service lives as long as its process.
void offerService() { static Service service; }

Owned<lpc_completion> begin(const char* method, const char* text) {
    lpc_completion* completion = nullptr;
    EXPECT_EQ(lpc_proxy_call_with_reply("platformTest", method, text, &completion), 0) << std::strerror(errno);
    return Owned<lpc_completion>(completion);
}

std::string ask(const char* method, const char* text) {
    const Owned<lpc_completion> completion = begin(method, text);
    if (completion == nullptr || lpc_completion_wait(completion.get(), patience) != 0) return "no reply";
    const char* reply = lpc_completion_data(completion.get());
    return reply != nullptr ? reply : "";
}

TEST(Lpc, RepliesOfAnyBytesToTheirOwnCalls) {
    offerService();
    EXPECT_EQ(ask("echo", everyByte().c_str()), everyByte()) << "an account's reply would be taken for another";
    EXPECT_EQ(ask("echo", ""), "");
    EXPECT_EQ(ask("release", "x"), "") << "a reply of nothing is an empty one";
    EXPECT_EQ(lpc_proxy_call("platformTest", "busy", ""), 0) << "a daemon at work would count as failed";
    std::thread([] {
        EXPECT_EQ(failing([] { return lpc_service_create("platformTest", 0, "echo", nullptr, nullptr); }), nullptr);
        EXPECT_EQ(errno, EEXIST) << "a second session on a port would take the relay from the first, or say so again";
    }).join();
}

TEST(Lpc, FailInBoundedTime) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_NE(failing([] { return lpc_proxy_call("platformTestNobody", "echo", "x"); }), 0)
        << "a call to a daemon that is not there would count as done";
    offerService();
    const Owned<lpc_completion> silent = begin("keep", "x");
    EXPECT_NE(failing([&] { return lpc_completion_wait(silent.get(), 20); }), 0);
    EXPECT_EQ(lpc_completion_data(silent.get()), nullptr);
    begin("keep", "whose completion goes before its reply");
    EXPECT_NE(failing([] { return lpc_proxy_call("platformTest", "keep", "x"); }), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << "a console would hang";
    EXPECT_EQ(ask("release", ""), "");
    EXPECT_EQ(ask("echo", "mine"), "mine") << "a late reply would be taken for another's";
    EXPECT_EQ(lpc_completion_wait(silent.get(), patience), 0);
    EXPECT_STREQ(lpc_completion_data(silent.get()), "late");
    lpc_completion_destroy(nullptr);
}

TEST(Threads, DoNotDisturbEachOther) {
    offerService();
    const auto work = [](const char* event) {
        Listener listener({event});
        Events expected;
        for (int i = 0; i < 300; ++i) {
            const std::string text = event + std::to_string(i);
            ASSERT_EQ(eventbus_publish(event, text.c_str()), 0);
            ASSERT_EQ(ask("echo", text.c_str()), text) << "a console would take the reply to another call";
            expected.push_back(event + (" " + text));
        }
        EXPECT_EQ(listener.takeEvents(), expected);
    };
    std::thread first(work, "platformTestFirst"), second(work, "platformTestSecond");
    first.join();
    second.join();
}

// JSON values

TEST(JsonToken, ReadsByPathAndFallsBack) {
    const Owned<json_token> root(
        json_token_parse(R"({"a":{"list":[1,"two",true],"n":null},"i":-3,"most":2147483647,)"
                         R"("big":2147483648,"small":-2147483649,"huge":99999999999999999999} x)"));
    ASSERT_NE(root, nullptr) << "text may follow";
    json_token* list = json_token_object_walk_get_array(root.get(), "a.list");
    EXPECT_EQ(json_token_array_length(list), 3);
    EXPECT_EQ(json_token_array_length(root.get()), 0);
    EXPECT_EQ(json_token_object_walk_get_int(root.get(), "a.list[0]", 9), 1);
    EXPECT_EQ(json_token_object_walk_get_int(root.get(), "most", 9), 2147483647);
    EXPECT_STREQ(json_token_object_walk_get_string(root.get(), "a.list[1]", "no"), "two");
    EXPECT_EQ(json_token_object_walk_get_boolean(root.get(), "a.list[2]", 9), 1);
    EXPECT_EQ(json_token_object_walk_get_array(root.get(), "a"), nullptr);
    EXPECT_EQ(json_token_object_walk_get_object(root.get(), "a.list"), nullptr);
    for (const char* path : {"a.list[3]",  "a.list[1]",   "a.n",      "a",          "none",
                             "i.j",        "big",         "small",    "huge",       "",
                             ".",          "i.",          ".i",       "a.list[",    "a.list[]",
                             "a.list[x]",  "a.list[-1]",  "a.list[0", "a.list[0]b", "a..n",
                             "a.list[ 0]", "a.list[0].b", "a.list.0", "[0]",        "a.list[99999999999999999999]"}) {
        EXPECT_EQ(json_token_object_walk_get_int(root.get(), path, 9), 9) << path;
    }
    for (const char* path : {"i", "a.n", "a.list", "a.list[0]", ""}) {
        EXPECT_STREQ(json_token_object_walk_get_string(root.get(), path, "no"), "no") << path;
    }
    EXPECT_EQ(json_token_object_walk_get_boolean(root.get(), "i", 9), 9);
    EXPECT_EQ(failing([] { return json_token_parse("{"); }), nullptr);
    json_token_ref_put(nullptr);
}

TEST(JsonToken, WritesByPath) {
    const Owned<json_token> root(json_token_new_object());
    EXPECT_EQ(json_token_object_walk_set_string(root.get(), "users[1].name", "a\"\\\x01"), 0);
    EXPECT_EQ(json_token_object_walk_set_object(root.get(), "users[0]", json_token_new_object()), 0);
    json_token* users = json_token_object_walk_get_array(root.get(), "users");
    EXPECT_EQ(json_token_array_put(users, 3, json_token_parse("7")), 0);
    EXPECT_NE(json_token_array_put(root.get(), 0, json_token_parse("7")), 0) << "owned all the same";
    for (const char* path :
         {"", ".", "users.", "users[", "users[x]", "users[-1]", "users..a", "users[3].x", "users.x"}) {
        EXPECT_NE(json_token_object_walk_set_string(root.get(), path, "x"), 0) << path;
        EXPECT_NE(json_token_object_walk_set_object(root.get(), path, json_token_new_object()), 0) << path;
    }
    EXPECT_NE(json_token_array_put(users, -1, json_token_new_object()), 0);
    const Owned<json_token> copy(json_token_parse(json_token_to_string(root.get())));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(json_token_array_length(json_token_object_walk_get_array(copy.get(), "users")), 4);
    EXPECT_STREQ(json_token_object_walk_get_string(copy.get(), "users[1].name", ""), "a\"\\\x01");
    EXPECT_NE(json_token_object_walk_get_object(copy.get(), "users[0]"), nullptr);
    EXPECT_EQ(json_token_object_walk_get_int(copy.get(), "users[3]", 0), 7);
}

// The rest

TEST(Device, AnswersTheSmallQuestions) {
    char* text = nullptr;
    EXPECT_NE(factory_read_data("PlatformTestNone", &text), 0);
    EXPECT_EQ(text, nullptr);
    EXPECT_TRUE(__logLevels != nullptr && __logLevels[LOG_CATEGORY_CONSOLE] >= 0);
    __printLog(LOG_LEVEL_ERROR, "platform_test %d %s", 1, everyByte().c_str());
    EXPECT_EQ(lsystem("exit 0"), 0) << "a tool that worked would count as failed";
    EXPECT_EQ(lsystem("exit 3"), 3) << "what a tool refused would be confirmed";
}

}  // namespace
