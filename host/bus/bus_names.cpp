#include "host/bus/bus_names.h"

#include "host/base/device_root.h"

#include <cstring>
#include <systemd/sd-bus.h>

namespace host {

std::string busPath() { return inRoot("bus"); }

bool isBusName(const char* name) {
    constexpr std::size_t longest = 200;
    return sd_bus_member_name_is_valid(name) > 0 && std::strlen(name) <= longest;
}

}  // namespace host
