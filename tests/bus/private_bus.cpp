#include "tests/bus/private_bus.h"

#include "host/base/device_root.h"
#include "host/bus/bus_config.h"
#include "host/bus/subscriptions.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// One root for the whole program, since a process belongs to one device for its life. Its name has what addresses
/// must escape.
class TestRoot {
  public:
    TestRoot() {
        if (mkdtemp(path_.data()) == nullptr) std::abort();
        host::setDeviceRoot(path_);
        std::filesystem::create_directory(path_ + "/log");
    }
    ~TestRoot() { std::filesystem::remove_all(path_); }

  private:
    std::string path_ = std::filesystem::temp_directory_path() / "bus, test XXXXXX";
};

[[noreturn]] void execute(const std::string& file, const std::vector<std::string>& arguments) {
    std::vector<char*> words{const_cast<char*>(file.c_str())};
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    execvp(file.c_str(), words.data());
    _exit(127);
}

}  // namespace

void PrivateBus::SetUpTestSuite() { static const TestRoot root; }

void PrivateBus::startBus() {
    const std::string config = host::writeBusConfig();
    ASSERT_FALSE(config.empty());
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    daemon_ = fork();
    if (daemon_ == 0) {
        execute("dbus-daemon", {"--nofork", "--config-file=" + config, "--print-address=" + std::to_string(ready[1])});
    }
    close(ready[1]);
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1) << "dbus-daemon did not start";
    close(ready[0]);
}

void PrivateBus::stopBus() {
    if (daemon_ < 0) return;
    kill(daemon_, SIGKILL);
    waitpid(daemon_, nullptr, 0);
    daemon_ = -1;
}

void PrivateBus::freezeBus() { kill(daemon_, SIGSTOP); }

void PrivateBus::thawBus() { kill(daemon_, SIGCONT); }

Listener::Listener(const char* event) : bus_(eventbus_open()) {
    const auto keep = [](void* self, const char* payload) {
        static_cast<Listener*>(self)->payloads_.emplace_back(payload);
    };
    const bool subscribed = bus_ != nullptr && eventbus_subscribe(bus_, event, keep, this) == 0;
    EXPECT_TRUE(subscribed && host::waitUntilSubscribed(bus_)) << event;
}

bool Listener::waitForInput() {
    pollfd input{eventbus_fileno(bus_), POLLIN, 0};
    errno = ETIMEDOUT;
    return poll(&input, 1, static_cast<int>(patience / 1ms)) == 1 && eventbus_on_data_available(bus_) == 0;
}

std::string Listener::take() {
    while (payloads_.empty()) {
        if (waitForInput()) continue;
        ADD_FAILURE() << "no event: " << std::strerror(errno);
        return {};
    }
    std::string first = payloads_.front();
    payloads_.erase(payloads_.begin());
    return first;
}

void waitUntil(const std::function<bool()>& isTrue) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!isTrue()) {
        ASSERT_LT(std::chrono::steady_clock::now(), end) << "waited in vain";
        std::this_thread::yield();
    }
}

Program::Program(const std::string& file, const std::vector<std::string>& arguments) {
    int output[2];
    if (pipe(output) != 0) std::abort();
    id_ = fork();
    if (id_ == 0) {
        dup2(output[1], STDOUT_FILENO);
        dup2(output[1], STDERR_FILENO);
        setenv("READY_FD", std::to_string(output[1]).c_str(), 1);
        execute(file, arguments);
    }
    close(output[1]);
    output_ = fdopen(output[0], "r");
}

std::string Program::readLine() {
    std::string line;
    for (int c = std::getc(output_); c != EOF && c != '\n'; c = std::getc(output_)) line += static_cast<char>(c);
    return line;
}

int Program::wait() {
    int status = 0;
    waitpid(id_, &status, 0);
    id_ = -1;
    std::fclose(output_);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int Program::stop(int signal) {
    if (id_ < 0) return 0;
    kill(id_, signal);
    return wait();
}
