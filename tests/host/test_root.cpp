#include "tests/host/test_root.h"

#include "host/base/atomic_file.h"
#include "host/base/device_root.h"
#include "host/base/log_levels.h"
#include "host/store/preparation.h"
#include "platform/event_bus.h"

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <gtest/gtest.h>
#include <mutex>
#include <utility>

namespace {

/// Its name has what addresses must escape.
class TestRoot {
  public:
    TestRoot() {
        std::string path = std::filesystem::temp_directory_path() / "host; test=XXXXXX";
        host::setDeviceRoot(mkdtemp(path.data()));
        host::prepareLog();
    }
    ~TestRoot() { std::filesystem::remove_all(host::deviceRoot()); }
};

const TestRoot root;

std::mutex mutex;
std::vector<std::string> published;

}  // namespace

host::StoreKind newKind(host::Durability durability) {
    static std::deque<std::string> names;
    names.push_back("store" + std::to_string(names.size()));
    return {names.back().c_str(), "Changed", durability};
}

host::StoreKind newStore(const char* content, host::Durability durability) {
    const host::StoreKind kind = newKind(durability);
    EXPECT_TRUE(host::prepareFreshStore(kind, content));
    return kind;
}

std::string logText() { return host::readFile(host::inRoot("log/device.log")).value_or(""); }

int eventbus_publish(const char* event, const char* payload) {
    const std::lock_guard lock(mutex);
    published.push_back(std::string(event) + " " + payload);
    return 0;
}

std::vector<std::string> takePublished() {
    const std::lock_guard lock(mutex);
    return std::exchange(published, {});
}
