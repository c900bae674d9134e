/// Starting a program in a process of its own.
#pragma once

#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace host {

struct ProgramStart {
    std::string path;
    std::vector<std::string> arguments;                 ///< its name first
    std::vector<std::string> environment = {};          ///< this process's own where it is empty
    const char* input = "/dev/null";                    ///< opened as its standard input
    std::vector<std::pair<int, int>> descriptors = {};  ///< this process's and the program's, which may be the same
    short flags = 0;  ///< POSIX_SPAWN_SETSID: `input` becomes its controlling terminal
};

/// The new process, whose signals are all at their defaults and not blocked; -1 with errno set when it cannot be run.
pid_t startProgram(ProgramStart start);

/// Pointers into `texts`, as the exec calls take them: the texts must stay as they are.
std::vector<char*> execWords(std::vector<std::string>& texts);

}  // namespace host
