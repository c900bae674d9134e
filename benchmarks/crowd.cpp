#include "benchmarks/crowd.h"

#include <array>
#include <span>
#include <stdexcept>
#include <string>
#include <sys/epoll.h>

namespace bench {
namespace {

constexpr int patience = 10'000;  // milliseconds

}  // namespace

Crowd::Crowd() : watch_(epoll_create1(EPOLL_CLOEXEC)) {}

PtySession& Crowd::add(const Program& program) {
    PtySession& session = *sessions_.emplace_back(std::make_unique<PtySession>(program));
    epoll_event interest{EPOLLIN, {.ptr = &session}};
    epoll_ctl(watch_.get(), EPOLL_CTL_ADD, session.terminal(), &interest);
    return session;
}

void Crowd::await(std::string_view text) {
    std::array<epoll_event, 16> events;
    for (std::size_t missing = size(); missing > 0;) {
        const int count = epoll_wait(watch_.get(), events.data(), static_cast<int>(events.size()), patience);
        if (count <= 0) throw std::runtime_error(std::to_string(missing) + " sessions have not shown it");
        for (const epoll_event& event : std::span(events).first(static_cast<std::size_t>(count))) {
            if (static_cast<PtySession*>(event.data.ptr)->hasShown(text)) --missing;
        }
    }
}

}  // namespace bench
