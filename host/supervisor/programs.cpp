#include "host/supervisor/programs.h"

namespace host {

Programs Programs::find() {
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto host = self.parent_path().parent_path();
    return {.console = host.parent_path() / "cmdd",
            .launcher = host / "launcher" / "telnet_launcher",
            .daemon = host / "daemons" / "device_daemon",
            .panel = host.parent_path() / "panel" / "panel",
            .standIn = host / "daemons" / "stand_in"};
}

}  // namespace host
