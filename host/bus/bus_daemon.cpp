#include "host/bus/bus_config.h"

#include "host/base/device_root.h"
#include "host/bus/bus_names.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>

namespace host {
namespace {

/// A path as bus addresses want it: all but a few plain characters as %XX.
std::string escapeAddress(const std::string& path) {
    std::string escaped;
    for (const char byte : path) {
        if (std::isalnum(static_cast<unsigned char>(byte)) != 0 || std::strchr("-_/.", byte) != nullptr) {
            escaped += byte;
        } else {
            char code[4];
            std::snprintf(code, sizeof code, "%%%02x", static_cast<unsigned char>(byte));
            escaped += code;
        }
    }
    return escaped;
}

std::string limit(const char* name, long value) {
    return std::string("  <limit name=\"") + name + "\">" + std::to_string(value) + "</limit>\n";
}

/// Room for thousands of sessions, which the bus takes for one user, and an end to what a stuck one can pile up.
std::string limits() {
    constexpr long kilo = 1024;
    constexpr long mega = kilo * kilo;
    constexpr long seconds = 1000;
    return limit("max_completed_connections", 16 * kilo) + limit("max_connections_per_user", 16 * kilo) +
           limit("max_incomplete_connections", 4 * kilo) + limit("max_names_per_connection", 64) +
           limit("max_match_rules_per_connection", 256) + limit("max_replies_per_connection", 4 * kilo) +
           limit("max_message_size", mega) + limit("max_incoming_bytes", 4 * mega) +
           limit("max_outgoing_bytes", 16 * mega) + limit("max_message_unix_fds", 0) +
           limit("auth_timeout", 30 * seconds) + limit("reply_timeout", 30 * seconds);
}

std::string configuration() {
    return "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
           " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
           "<busconfig>\n"
           "  <listen>unix:path=" +
           escapeAddress(busPath()) +
           "</listen>\n"
           "  <auth>EXTERNAL</auth>\n"
           "  <policy context=\"default\">\n"
           "    <allow send_destination=\"*\"/>\n"
           "    <allow receive_sender=\"*\"/>\n"
           "    <allow own_prefix=\"lpc\"/>\n"
           "  </policy>\n" +
           limits() + "</busconfig>\n";
}

}  // namespace

std::string writeBusConfig() {
    const std::string path = inRoot("bus.conf");
    errno = 0;
    std::ofstream file(path, std::ios::trunc);
    file << configuration();
    file.close();
    return file.fail() ? std::string() : path;
}

}  // namespace host
