#include "host/base/program_start.h"

#include <algorithm>
#include <cerrno>
#include <csignal>

namespace host {
namespace {

pid_t spawn(const std::string& path, const posix_spawn_file_actions_t& actions, const posix_spawnattr_t& attributes,
            std::vector<std::string>& arguments, char* const* environment) {
    pid_t pid = -1;
    errno = posix_spawn(&pid, path.c_str(), &actions, &attributes, execWords(arguments).data(), environment);
    return errno == 0 ? pid : -1;
}

}  // namespace

ProgramStart::ProgramStart() {
    posix_spawn_file_actions_init(&actions_);
    posix_spawnattr_init(&attributes_);
    sigset_t all, none;
    sigfillset(&all);
    sigemptyset(&none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setsigmask(&attributes_, &none);
    addFlag(POSIX_SPAWN_SETSIGDEF);
    addFlag(POSIX_SPAWN_SETSIGMASK);
}

ProgramStart::~ProgramStart() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
}

void ProgramStart::open(int descriptor, const char* path, int flags) {
    posix_spawn_file_actions_addopen(&actions_, descriptor, path, flags, 0);
}

void ProgramStart::give(int own, int descriptor) { posix_spawn_file_actions_adddup2(&actions_, own, descriptor); }

void ProgramStart::beginSession() { addFlag(POSIX_SPAWN_SETSID); }

void ProgramStart::beginGroup() { addFlag(POSIX_SPAWN_SETPGROUP); }

pid_t ProgramStart::run(const std::string& path, std::vector<std::string> arguments) const {
    return spawn(path, actions_, attributes_, arguments, environ);
}

pid_t ProgramStart::run(const std::string& path, std::vector<std::string> arguments,
                        std::vector<std::string> environment) const {
    return spawn(path, actions_, attributes_, arguments, execWords(environment).data());
}

void ProgramStart::addFlag(short flag) {
    short flags = 0;
    posix_spawnattr_getflags(&attributes_, &flags);
    posix_spawnattr_setflags(&attributes_, static_cast<short>(flags | flag));
}

std::vector<char*> execWords(std::vector<std::string>& texts) {
    std::vector<char*> words(texts.size() + 1, nullptr);
    std::transform(texts.begin(), texts.end(), words.begin(), [](std::string& text) { return text.data(); });
    return words;
}

}  // namespace host
