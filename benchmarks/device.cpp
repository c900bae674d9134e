#include "benchmarks/device.h"

#include "host/base/start_program.h"
#include "host/base/unique_fd.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {
namespace {

/// The port of the line "ready: telnet 127.0.0.1 PORT raw ..."; 0 when the supervisor ends without it.
int awaitReady(int output) {
    const std::unique_ptr<FILE, int (*)(FILE*)> lines(fdopen(output, "r"), std::fclose);
    std::array<char, 256> line;
    while (std::fgets(line.data(), line.size(), lines.get()) != nullptr) {
        int port = 0;
        if (std::sscanf(line.data(), "ready: telnet %*s %d", &port) == 1) return port;
    }
    return 0;
}

}  // namespace

Device::Device(const std::filesystem::path& build, std::filesystem::path root) : root_(std::move(root)) {
    std::filesystem::remove_all(root_);
    std::filesystem::create_directories(root_);
    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    host::UniqueFd input(pipe[0]), output(pipe[1]);
    pid_ =
        host::startProgram({.path = build / "bin/supervisor",
                            .arguments = {"device", "--root", root_, "--port", "0", "--ports", "0,0,0", "--panel", "0"},
                            .descriptors = {{output.get(), STDOUT_FILENO}}});
    output.reset();
    port_ = awaitReady(input.release());
    if (port_ == 0) throw std::runtime_error("the device did not start");
}

Device::~Device() {
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
}

host::ProgramStart Device::console() const {
    constexpr char name[] = "/usr/bin/*cmdd";
    return {root_.string() + name,
            {name},
            {"PATH=" + (root_ / "sbin").string(), "DEVICE_ROOT=" + root_.string(), "TELNET_CLIENT_IP=127.0.0.1",
             "MALLOC_ARENA_MAX=1"}};
}

}  // namespace bench
