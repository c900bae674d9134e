#include "tests/store/published_events.h"

#include "platform/event_bus.h"

#include <mutex>
#include <utility>

namespace {

std::mutex mutex;
std::vector<std::string> published;

}  // namespace

int eventbus_publish(const char* event, const char* payload) {
    const std::lock_guard lock(mutex);
    published.push_back(std::string(event) + " " + payload);
    return 0;
}

std::vector<std::string> takePublished() {
    const std::lock_guard lock(mutex);
    return std::exchange(published, {});
}
