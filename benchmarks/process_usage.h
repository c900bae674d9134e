/// What a running process has used so far.
#pragma once

#include <sys/types.h>

namespace bench {

/// In bytes.
struct MemoryUse {
    double privateDirty;
    double proportional;
};

/// The same for a process that is gone: nothing.
MemoryUse memoryUseOf(pid_t pid);

/// The processor time of all its threads, in seconds.
double processorTimeOf(pid_t pid);

}  // namespace bench
