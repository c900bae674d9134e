#include "host/launcher/lingering_closes.h"

#include "host/launcher/peer.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 1s;

/// Beyond it the oldest is closed, so that a flood of refused peers holds few descriptors.
constexpr std::size_t mostAtOnce = 64;

}  // namespace

LingeringCloses::LingeringClose::LingeringClose(EventLoop& loop, UniqueFd socket, LingeringCloses& all)
    : peer(std::move(socket)),
      watch(loop, peer.get(),
            [this, &all] {
                if (!discardInput(peer.get())) all.forget(*this);
            }),
      deadline(loop, [this, &all] { all.forget(*this); }) {
    deadline.start(patience);
}

void LingeringCloses::close(UniqueFd peer, std::string_view text) {
    sendIfTaken(peer.get(), text);
    if (closes_.size() == mostAtOnce) closes_.pop_front();
    closes_.emplace_back(loop_, std::move(peer), *this);
}

void LingeringCloses::forget(const LingeringClose& ended) {
    closes_.remove_if([&ended](const LingeringClose& other) { return &other == &ended; });
}

}  // namespace host
