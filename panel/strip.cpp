#include "panel/strip.h"

#include "host/base/visible_text.h"

#include <chrono>
#include <utility>

namespace panel {
namespace {

constexpr std::size_t mostAtOnce = 100;
constexpr std::size_t longestText = 4096;

int64_t now() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

json_object* textOf(std::string_view text) {
    return json_object_new_string_len(text.data(), static_cast<int>(text.size()));
}

json_object* entryOf(const char* kind, const std::string& who, std::string_view text) {
    json_object* entry = json_object_new_object();
    json_object_object_add(entry, "time", json_object_new_int64(now()));
    json_object_object_add(entry, "kind", json_object_new_string(kind));
    json_object_object_add(entry, "who", textOf(who));
    json_object_object_add(entry, "text", textOf(host::visibleText(text.substr(0, longestText))));
    return entry;
}

}  // namespace

void Strip::add(const char* kind, const std::string& who, std::string_view text) {
    if (entries_ == nullptr) entries_.reset(json_object_new_array());
    if (json_object_array_length(entries_.get()) < mostAtOnce) {
        json_object_array_add(entries_.get(), entryOf(kind, who, text));
    } else {
        ++beyond_;
    }
}

host::Json Strip::take() {
    const int beyond = std::exchange(beyond_, 0);
    if (beyond > 0) json_object_array_add(entries_.get(), entryOf("flood", "", std::to_string(beyond)));
    return std::move(entries_);
}

}  // namespace panel
