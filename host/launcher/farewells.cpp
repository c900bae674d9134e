#include "host/launcher/farewells.h"

#include "host/launcher/peer.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 1s;

/// Beyond it the oldest is closed, so that a flood of refused peers holds few descriptors.
constexpr std::size_t mostAtOnce = 64;

}  // namespace

Farewells::Parting::Parting(EventLoop& loop, UniqueFd socket, Farewells& all)
    : peer(std::move(socket)),
      watch(loop, peer.get(),
            [this, &all] {
                if (!discardInput(peer.get())) all.forget(*this);
            }),
      deadline(loop, [this, &all] { all.forget(*this); }) {
    deadline.start(patience);
}

void Farewells::say(UniqueFd peer, std::string_view text) {
    sendLastWords(peer.get(), text);
    if (partings_.size() == mostAtOnce) partings_.pop_front();
    partings_.emplace_back(loop_, std::move(peer), *this);
}

void Farewells::forget(const Parting& parting) {
    partings_.remove_if([&parting](const Parting& other) { return &other == &parting; });
}

}  // namespace host
