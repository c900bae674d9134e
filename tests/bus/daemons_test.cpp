#include "host/base/device_process.h"
#include "host/base/device_root.h"
#include "host/base/factory_store.h"
#include "host/base/log_levels.h"
#include "host/daemons/time_scale.h"
#include "host/daemons/trigger_request.h"
#include "host/store/defaults.h"
#include "host/store/preparation.h"
#include "host/store/store.h"
#include "platform/factory_data.h"
#include "platform/logger.h"
#include "platform/lpc.h"
#include "platform/user_config.h"
#include "platform/user_status.h"
#include "tests/bus/private_bus.h"

#include <arpa/inet.h>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <netinet/in.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;

TEST(TriggerRequest, DecodesWordsAndEndCharacters) {
    const std::pair<std::string, std::string> cases[] = {{"50 57 0D", "PW\r"},
                                                         {" 41 42", "AB"},
                                                         {"50 57\r", "PW\r"},
                                                         {"50 57\r\n", "PW\r\n"},
                                                         {"50 57\x02", "PW\x02"},
                                                         {"50 57 ", "PW "},
                                                         {"50 00 41", "P\0A"s},
                                                         {"a 0", "\x0a\0"s},
                                                         {"PWR 4f", "PWRO"},
                                                         {"123 ABC", "123ABC"},
                                                         {"", ""},
                                                         {" ", " "},
                                                         {"ff FF fF", "\xff\xff\xff"}};
    for (const auto& [text, bytes] : cases) EXPECT_EQ(host::decodeControlString(text), bytes) << text;
}

constexpr char busyRs232[] = R"({"control":{"displayControl":{"output1":{"transmission":{"rs232":false}}}}})";
constexpr char busyTelnet[] = R"({"control":{"displayControl":{"output1":{"transmission":{"telnet":false}}}}})";

std::string request(const std::string& data, int waits = 0, bool isLeading = true, int sendCount = 1) {
    return R"({"displayControl":{"fiveSecDelay":)" + std::to_string(waits) + R"( ,"sendcount":)" +
           std::to_string(sendCount) + R"( ,"sendData":")" + data + R"(","leadingFlag":)" +
           std::to_string(isLeading ? 1 : 0) + R"(,"writeNull":0}})";
}

bool isOn(const char* statusLeaf) {
    int on = 0;
    EXPECT_NE(user_status_query_boolean(statusLeaf, &on), 0);
    return on == 1;
}

std::string status(const char* query) { return host::statusStore().readText(query).value_or("nothing"); }

/// Stores a control string of the display's triggers.
void storeTrigger(const std::string& key, const std::string& content, const std::string& end, bool isPaced = false) {
    const std::string document = R"({"control":{"displayControl":{"output1":{"triger":{"command":{"commandWait":)" +
                                 (isPaced ? "true"s : "false"s) + R"(,"content":{")" + key + R"(":")" + content +
                                 R"("},"end":{")" + key + R"(":")" + end + R"("}}}}}}})";
    ASSERT_EQ(user_config_update(document.c_str()), 0);
}

std::string programPath(const char* variable) {
    const char* path = std::getenv(variable);
    EXPECT_NE(path, nullptr) << variable;
    return path != nullptr ? path : "";
}

class DaemonsTest : public PrivateBus {
  protected:
    static void SetUpTestSuite() {
        PrivateBus::SetUpTestSuite();
        std::signal(SIGPIPE, SIG_IGN);
        setenv(host::timeScaleVariable, "0.02", 1);
        ASSERT_TRUE(host::prepareLog() && host::prepareFactoryData());
        ASSERT_TRUE(host::prepareKeptStore(host::settingsKind, host::defaultSettings));
        ASSERT_TRUE(host::prepareFreshStore(host::statusKind, host::defaultStatus));
    }

    void SetUp() override {
        ASSERT_TRUE(host::settingsStore().replaceAll(host::defaultSettings));
        ASSERT_TRUE(host::statusStore().replaceAll(host::defaultStatus));
        startBus();
    }

    void start(const char* name) {
        daemon_ = std::make_unique<Program>(programPath("DEVICE_DAEMON"), std::vector<std::string>{name});
        ASSERT_EQ(daemon_->readLine(), name);
    }

    void TearDown() override {
        EXPECT_TRUE(!daemon_ || daemon_->stop(SIGTERM) == 0);
        stopBus();
    }

    static std::string deviceLog() {
        std::ifstream file(host::inRoot("log/device.log"));
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static bool isLogged(const std::string& text) { return deviceLog().find(text) != std::string::npos; }

    std::unique_ptr<Program> daemon_;
};

/// Offers a service whose only method notes its calls and answers each with `reply`.
class Answerer {
  public:
    Answerer(const char* service, const char* method, const char* reply)
        : reply_(reply), thread_([this, service, method] { serve(service, method); }) {
        waitUntil([this] { return isReady_.load(); });
    }
    ~Answerer() {
        stopping_ = true;
        thread_.join();
    }

    int calls() const { return calls_; }

  private:
    void serve(const char* name, const char* method) {
        const lpc_handler answer = [](lpc_request* call, void* self) {
            ++static_cast<Answerer*>(self)->calls_;
            lpc_request_completed(call, static_cast<Answerer*>(self)->reply_);
        };
        lpc_service* service = lpc_service_create(name, 0, method, answer, this);
        isReady_ = true;
        while (!stopping_) {
            pollfd input{lpc_service_fileno(service), POLLIN, 0};
            if (poll(&input, 1, 10) == 1) lpc_service_on_connect(service);
        }
    }

    const char* reply_;
    std::atomic<int> calls_ = 0;
    std::atomic<bool> isReady_ = false;
    std::atomic<bool> stopping_ = false;
    std::thread thread_;
};

/// A display that listens on a port of its own, which it writes into the settings.
class Display {
  public:
    Display() : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        EXPECT_EQ(bind(listener_, reinterpret_cast<sockaddr*>(&address), size), 0);
        EXPECT_EQ(getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size), 0);
        const std::string document = R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"port":)" +
                                     std::to_string(ntohs(address.sin_port)) + "}}}}}";
        EXPECT_EQ(user_config_update(document.c_str()), 0);
    }
    ~Display() { close(listener_); }

    void listen() { EXPECT_EQ(::listen(listener_, 5), 0); }

    /// All that comes over the next connection until its end.
    std::string receive() {
        const int connection = accept(listener_, nullptr, nullptr);
        std::string bytes;
        char buffer[256];
        for (ssize_t count; (count = read(connection, buffer, sizeof buffer)) > 0;) {
            bytes.append(buffer, static_cast<std::size_t>(count));
        }
        close(connection);
        return bytes;
    }

  private:
    int listener_;
};

TEST_F(DaemonsTest, ASerialCommandIsPacedAndAnnouncedOnce) {
    storeTrigger("on", "41 2c 42 2c 2c 43", "CR", true);
    start("displayControl");
    Listener feedback("CommandFeedback");
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(lpc_proxy_call("displayControl", "SetCmdOn", request("41 0D").c_str()), 0);
    EXPECT_TRUE(isOn(busyRs232));
    ASSERT_EQ(lpc_proxy_call("displayControl", "SetCmdOn", request("42 0D", 1, false).c_str()), 0);
    ASSERT_EQ(lpc_proxy_call("displayControl", "SetCmdOn", request("43 0D", 2, false).c_str()), 0);
    EXPECT_EQ(feedback.take(), "TrigRS1 on");
    EXPECT_FALSE(isOn(busyRs232));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 3 * host::scaled(5s));
    const std::string log = deviceLog();
    const std::size_t first = log.find("41 0d (A.)"), second = log.find("42 0d (B.)"), third = log.find("43 0d (C.)");
    EXPECT_TRUE(first < second && second < third && third != std::string::npos) << log;
}

TEST_F(DaemonsTest, TheDisplayGetsACommandOverOneConnection) {
    Display display;
    display.listen();
    storeTrigger("on", "41 2c 42", "Null", true);
    start("displayControlTelnetClient");
    Listener feedback("CommandFeedback");
    ASSERT_EQ(lpc_proxy_call("displayControlTelnetClient", "SetCmdOn", request("41 00", 0, true, 3).c_str()), 0);
    EXPECT_TRUE(isOn(busyTelnet));
    ASSERT_EQ(lpc_proxy_call("displayControlTelnetClient", "SetCmdOn", request("42 00", 1, false).c_str()), 0);
    EXPECT_EQ(display.receive(), "A\0A\0A\0B\0"s);
    EXPECT_EQ(feedback.take(), "TrigIP1 on");
}

TEST_F(DaemonsTest, FiveFailuresLockAClientOutForAWhile) {
    constexpr char list[] = R"({"network":{"http":{"bruteForceAttacks":{"loginFailedList":[]}}}})";
    start("bruteForceAttacksd");
    for (int i = 0; i < 4; ++i) lpc_proxy_call("bruteForceAttacksd", "cgiLoginFailedMacaddr", "one");
    lpc_proxy_call("bruteForceAttacksd", "cgiLoginFailedMacaddr", "two \"\\");
    EXPECT_EQ(status(list), R"([{"id":"one","isLock":false},{"id":"two \"\\","isLock":false}])");
    lpc_proxy_call("bruteForceAttacksd", "loginSuccessEvent", "two \"\\");
    lpc_proxy_call("bruteForceAttacksd", "cgiLoginFailedMacaddr", "one");
    EXPECT_EQ(status(list), R"([{"id":"one","isLock":true}])");
    for (int i = 0; i < 150; ++i) {
        lpc_proxy_call("bruteForceAttacksd", "cgiLoginFailedMacaddr", ("other" + std::to_string(i)).c_str());
    }
    EXPECT_EQ(status(list).rfind(R"([{"id":"one","isLock":true})", 0), 0U) << "others do not push a locked one out";
    EXPECT_LT(status(list).size(), 5000U);
    waitUntil([&] { return status(list).find("\"one\"") == std::string::npos; });
}

/// Makes this process the one that runs the device.
class DeviceLock {
  public:
    DeviceLock() : file_(open(host::deviceLockPath().c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)) {
        EXPECT_EQ(flock(file_, LOCK_EX | LOCK_NB), 0);
        dprintf(file_, "%d\n", getpid());
        sigemptyset(&signals_);
        sigaddset(&signals_, SIGUSR1);
        pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
    }
    ~DeviceLock() { close(file_); }

    bool isSignalled() const {
        const timespec limit{10, 0};
        return sigtimedwait(&signals_, nullptr, &limit) == SIGUSR1;
    }

  private:
    int file_;
    sigset_t signals_;
};

TEST_F(DaemonsTest, StandInToolsWorkOnTheDeviceAlone) {
    const std::filesystem::path folder = host::inRoot("sbin");
    std::filesystem::create_directories(folder);
    const auto run = [&](const char* tool, const std::vector<std::string>& arguments) {
        std::filesystem::remove(folder / tool);
        std::filesystem::create_symlink(programPath("STAND_IN"), folder / tool);
        return Program(folder / tool, arguments).wait();
    };
    EXPECT_EQ(run("apploggertool", {"-a", "console", "debug"}), 0);
    EXPECT_GE(__logLevels[LOG_CATEGORY_CONSOLE], LOG_LEVEL_TRACE);
    EXPECT_EQ(run("apploggertool", {"-d"}), 0);
    EXPECT_LT(__logLevels[LOG_CATEGORY_CONSOLE], LOG_LEVEL_TRACE);
    EXPECT_EQ(run("apploggertool", {"-x"}), 1);

    EXPECT_EQ(run("factory_tool", {"-w", "SerialNumber", "x;touch y"}), 0);
    char* serial = nullptr;
    ASSERT_EQ(factory_read_data("SerialNumber", &serial), 0);
    EXPECT_STREQ(serial, "x;touch y");
    std::free(serial);
    EXPECT_EQ(run("factory_tool", {"-w", "../x", "y"}), 1);
    EXPECT_TRUE(isLogged("[-w] [SerialNumber] [x;touch y]"));

    {
        const Answerer launcher("telnetLauncher", "endSessions", "ok");
        EXPECT_EQ(run("killall", {"*cmdd"}), 0);
        EXPECT_EQ(run("killall", {"sshd"}), 1);
        EXPECT_EQ(launcher.calls(), 1);
    }
    std::filesystem::remove(host::deviceLockPath());
    EXPECT_EQ(run("reboot", {}), 1);
    {
        const DeviceLock lock;
        EXPECT_EQ(run("reboot", {}), 0);
        EXPECT_TRUE(lock.isSignalled());
    }
    const std::filesystem::path outside = std::filesystem::path(testing::TempDir()) / "factory_tool";
    std::filesystem::remove(outside);
    std::filesystem::create_symlink(programPath("STAND_IN"), outside);
    EXPECT_EQ(Program(outside, {"-w", "SerialNumber", "outside"}).wait(), 1);
    EXPECT_FALSE(isLogged("outside"));
    std::filesystem::remove(outside);
}

TEST_F(DaemonsTest, DevicectlShowsAndChangesTheDevice) {
    const auto control = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--root", host::deviceRoot()});
        return std::make_unique<Program>(programPath("DEVICECTL"), arguments);
    };
    const auto run = [&](const std::vector<std::string>& arguments) {
        const auto program = control(arguments);
        std::string output;
        for (std::string line = program->readLine(); !line.empty(); line = program->readLine()) output += line + "\n";
        return std::to_string(program->wait()) + " " + output;
    };
    EXPECT_EQ(run({"config", "set", R"({"system":{"broadcast":false}})"}), "0 ");
    EXPECT_EQ(run({"config", "get", R"({"system":{"broadcast":true}})"}), "0 false\n");
    EXPECT_EQ(run({"status", "get", R"({"control":{}})"}),
              "0 {\"displayControl\":{\"output1\":{\"transmission\":{\"rs232\":false,\"telnet\":false}}}}\n");
    EXPECT_EQ(run({"status", "get", R"({"none":0})"}), "1 devicectl: {\"none\":0}: nothing is stored there\n");
    EXPECT_EQ(run({"factory", "set", "ProductID", "a b"}), "0 ");
    EXPECT_EQ(run({"factory", "get", "ProductID"}), "0 a b\n");
    EXPECT_EQ(run({"call", "nobody", "m", "x"}).substr(0, 23), "1 devicectl: nobody m: ");
    for (const auto& wrong : std::vector<std::vector<std::string>>{{}, {"publish", "x"}, {"watch", "x"}, {"config"}}) {
        EXPECT_EQ(run(wrong).substr(0, 8), "2 usage:");
    }

    std::filesystem::remove(host::inRoot("log/calls"));
    const auto watch = control({"watch"});
    ASSERT_EQ(watch->readLine(), "watching");
    const Answerer service("someService", "m", "the reply");
    EXPECT_EQ(run({"publish", "someChanged", "a\tb\r\x80"}), "0 ");
    EXPECT_EQ(run({"call", "someService", "m", "back\\slash"}), "0 the reply\n");
    EXPECT_EQ(watch->readLine(), "event someChanged a\\tb\\r\x80");
    EXPECT_EQ(watch->readLine(), "call someService m back\\\\slash");
    EXPECT_EQ(watch->stop(SIGTERM), -SIGTERM);
    EXPECT_EQ(run({"calls"}), "0 call someService m back\\\\slash\n");
}

}  // namespace
