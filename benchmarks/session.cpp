#include "benchmarks/session.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <span>
#include <stdexcept>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {
namespace {

constexpr std::chrono::seconds longestPatience{10};

[[noreturn]] void fail(const std::string& what, int error = errno) {
    throw std::runtime_error(what + ": " + std::strerror(error));
}

host::UniqueFd newTerminal() {
    host::UniqueFd terminal = host::openTerminal();
    if (!terminal) fail("pseudo-terminal");
    return terminal;
}

}  // namespace

void Talk::type(std::string_view bytes) {
    if (write(end_.get(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) fail("typing");
}

bool Talk::hasShown(std::string_view text) {
    std::array<char, 4096> bytes;
    const ssize_t count = read(end_.get(), bytes.data(), bytes.size());
    if (count == 0 || (count < 0 && errno != EAGAIN)) fail("the other end is gone");
    if (count > 0) shown_.append(bytes.data(), static_cast<std::size_t>(count));
    const bool found = shown_.find(text) != std::string::npos;
    if (found) shown_.clear();
    return found;
}

bool Talk::awaitFor(std::chrono::milliseconds patience, std::string_view text) {
    while (!hasShown(text)) {
        pollfd input{end_.get(), POLLIN, 0};
        if (poll(&input, 1, static_cast<int>(patience.count())) == 0) return false;
    }
    return true;
}

void Talk::await(std::string_view text) {
    if (!awaitFor(longestPatience, text)) fail("no \"" + std::string(text) + "\" after \"" + shown_ + "\"", ETIMEDOUT);
}

void Talk::ask(std::string_view line, std::string_view reply) {
    type(line);
    await(reply);
}

Talk connectTo(int port) {
    host::UniqueFd socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) fail("the launcher");
    fcntl(socket.get(), F_SETFL, O_NONBLOCK);
    return Talk(std::move(socket));
}

Session::Session(const host::ProgramStart& program)
    : Talk(newTerminal()), pid_(host::startOnTerminal(descriptor(), program)) {
    if (pid_ < 0) fail(program.path);
}

Session::~Session() {
    hangUp();
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
}

Crowd::Crowd() : watch_(epoll_create1(EPOLL_CLOEXEC)) {}

Session& Crowd::add(const host::ProgramStart& program) {
    Session& session = *sessions_.emplace_back(std::make_unique<Session>(program));
    epoll_event interest{EPOLLIN, {.ptr = &session}};
    epoll_ctl(watch_.get(), EPOLL_CTL_ADD, session.descriptor(), &interest);
    return session;
}

void Crowd::await(std::string_view text) {
    constexpr int patience = std::chrono::milliseconds(longestPatience).count();
    std::array<epoll_event, 16> events;
    for (std::size_t missing = size(); missing > 0;) {
        const int count = epoll_wait(watch_.get(), events.data(), static_cast<int>(events.size()), patience);
        if (count <= 0) fail(std::to_string(missing) + " sessions have not shown it", ETIMEDOUT);
        for (const epoll_event& event : std::span(events).first(static_cast<std::size_t>(count)))
            if (static_cast<Session*>(event.data.ptr)->hasShown(text)) --missing;
    }
}

}  // namespace bench
