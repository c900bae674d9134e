#include "benchmarks/process_usage.h"

#include <ctime>
#include <fstream>
#include <limits>
#include <string>

namespace bench {

MemoryUse memoryUseOf(pid_t pid) {
    std::ifstream fields("/proc/" + std::to_string(pid) + "/smaps_rollup");
    MemoryUse use{};
    for (std::string name; fields >> name;) {
        double kilobytes = 0;
        if (name == "Private_Dirty:" && fields >> kilobytes) use.privateDirty = kilobytes * 1024;
        if (name == "Pss:" && fields >> kilobytes) use.proportional = kilobytes * 1024;
        fields.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    return use;
}

double processorTimeOf(pid_t pid) {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(pid, &clock) != 0 || clock_gettime(clock, &time) != 0) return 0;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace bench
