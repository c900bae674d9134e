/// What events, services and methods are called on the bus.
///
/// Each event has an interface of its own, and all have the one path by which the bus is asked for them.
#pragma once

#include "host/base/device_root.h"

#include <cstring>
#include <string>
#include <string_view>
#include <systemd/sd-bus.h>

namespace host {

inline constexpr char eventPath[] = "/event";
inline constexpr char eventMember[] = "Event";
inline constexpr char eventInterfacePrefix[] = "device.event.";
inline constexpr char callInterface[] = "device.Lpc";
inline constexpr char callPathPrefix[] = "/lpc/";

/// The longest text that an event, a call or a reply carries, in bytes. The bus closes the connection of a sender that
/// exceeds its own, larger limit.
inline constexpr std::size_t longestText = std::size_t{512} * 1024;

/// Path of the bus's socket.
inline std::string busPath() { return inRoot("bus"); }

/// True for a name of letters, digits and underscores that does not start with a digit, as the bus wants them.
inline bool isBusName(const char* name) {
    constexpr std::size_t longest = 200;
    return sd_bus_member_name_is_valid(name) > 0 && std::strlen(name) <= longest;
}

/// What follows `prefix` in a name that the bus gives; empty for one without it.
inline std::string_view afterPrefix(const char* text, std::string_view prefix) {
    const std::string_view whole = text == nullptr ? "" : text;
    return whole.starts_with(prefix) ? whole.substr(prefix.size()) : std::string_view();
}

inline std::string eventInterface(std::string_view event) { return std::string(eventInterfacePrefix).append(event); }
inline std::string servicePath(std::string_view service) { return std::string(callPathPrefix).append(service); }
inline std::string serviceName(std::string_view service) { return std::string("lpc.").append(service); }

}  // namespace host
