#include "host/bus/bus_daemon.h"

#include "host/base/device_root.h"

#include <fstream>

namespace host {
namespace {

/// The path is relative, so that it needs no escapes. The limits leave room for thousands of sessions, which the bus
/// takes for one user, and bound what a stuck one can pile up. Times are in milliseconds.
constexpr char configuration[] =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <listen>unix:path=bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own_prefix="lpc"/>
  </policy>
  <limit name="max_completed_connections">16384</limit>
  <limit name="max_connections_per_user">16384</limit>
  <limit name="max_incomplete_connections">4096</limit>
  <limit name="max_names_per_connection">64</limit>
  <limit name="max_match_rules_per_connection">256</limit>
  <limit name="max_replies_per_connection">4096</limit>
  <limit name="max_message_size">1048576</limit>
  <limit name="max_incoming_bytes">4194304</limit>
  <limit name="max_outgoing_bytes">16777216</limit>
  <limit name="max_message_unix_fds">0</limit>
  <limit name="auth_timeout">30000</limit>
  <limit name="reply_timeout">30000</limit>
</busconfig>
)";

}  // namespace

std::vector<std::string> busCommand(int readyDescriptor) {
    const std::string path = inRoot("bus.conf");
    if (!(std::ofstream(path) << configuration << std::flush)) return {};
    return {"/usr/bin/dbus-daemon", "--nofork", "--nopidfile", "--config-file=" + path,
            "--print-address=" + std::to_string(readyDescriptor)};
}

}  // namespace host
