#include "host/supervisor/orphans.h"

#include <charconv>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace host {
namespace {

/// 0 for a process that is gone. The name in the second field may hold anything, so the last ")" counts.
pid_t parentOf(const std::filesystem::path& process) {
    std::ifstream file(process / "stat");
    std::string line;
    std::getline(file, line);
    std::istringstream fields(line.substr(line.rfind(')') + 1));
    char state = 0;
    pid_t parent = 0;
    fields >> state >> parent;
    return parent;
}

std::vector<pid_t> ownChildren() {
    std::vector<pid_t> children;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
        const std::string name = entry.path().filename();
        pid_t pid = 0;
        std::from_chars(name.data(), name.data() + name.size(), pid);
        if (pid > 0 && parentOf(entry.path()) == getpid()) children.push_back(pid);
    }
    return children;
}

}  // namespace

void adoptOrphans() { prctl(PR_SET_CHILD_SUBREAPER, 1); }

/// What a killed process leaves behind is handed on in turn.
void endOrphans() {
    do {
        for (const pid_t child : ownChildren()) kill(child, SIGKILL);
    } while (waitpid(-1, nullptr, 0) > 0);
}

}  // namespace host
