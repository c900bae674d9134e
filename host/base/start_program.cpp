#include "host/base/start_program.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace host {

pid_t startProgram(ProgramStart start) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, start.input, O_RDWR, 0);
    for (const auto& [own, given] : start.descriptors) posix_spawn_file_actions_adddup2(&actions, own, given);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t all, none;
    sigfillset(&all);
    sigemptyset(&none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setsigmask(&attributes, &none);
    constexpr short signals = POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK;
    posix_spawnattr_setflags(&attributes, static_cast<short>(start.flags | signals));

    pid_t pid = -1;
    const std::vector<char*> environment = execWords(start.environment);
    const int error = posix_spawn(&pid, start.path.c_str(), &actions, &attributes, execWords(start.arguments).data(),
                                  start.environment.empty() ? environ : environment.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    errno = error;
    return error == 0 ? pid : -1;
}

std::vector<char*> execWords(std::vector<std::string>& texts) {
    std::vector<char*> words(texts.size() + 1, nullptr);
    std::transform(texts.begin(), texts.end(), words.begin(), [](std::string& text) { return text.data(); });
    return words;
}

}  // namespace host
