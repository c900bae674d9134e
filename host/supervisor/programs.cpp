#include "host/supervisor/programs.h"

namespace host {

Programs Programs::find() {
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto folder = self.parent_path();
    if (std::filesystem::exists(folder / "cmdd", error)) {  // installed
        return {.console = folder / "cmdd",
                .launcher = folder / "telnet_launcher",
                .daemon = folder / "device_daemon",
                .panel = folder / "panel",
                .standIn = folder / "stand_in"};
    }
    const auto host = folder.parent_path();  // as they were built
    return {.console = host.parent_path() / "cmdd",
            .launcher = host / "launcher" / "telnet_launcher",
            .daemon = host / "daemons" / "device_daemon",
            .panel = host.parent_path() / "panel" / "panel",
            .standIn = host / "daemons" / "stand_in"};
}

}  // namespace host
