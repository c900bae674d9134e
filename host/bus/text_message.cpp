#include "host/bus/text_message.h"

#include "host/bus/bus_names.h"

#include <cerrno>
#include <cstring>

namespace host {

int appendText(sd_bus_message* message, const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    if (size > longestText) return -EMSGSIZE;
    return sd_bus_message_append_array(message, 'y', text, size);
}

const char* readText(sd_bus_message* message) {
    const void* bytes = nullptr;
    std::size_t size = 0;
    if (sd_bus_message_read_array(message, 'y', &bytes, &size) <= 0) return nullptr;
    const char* text = static_cast<const char*>(bytes);
    return size > 0 && strnlen(text, size) == size - 1 ? text : nullptr;
}

}  // namespace host
