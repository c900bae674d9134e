/// Starting a program in a process of its own.
#pragma once

#include <spawn.h>
#include <string>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

namespace host {

/// What the new process finds: every signal at its default and none blocked, this process's descriptors but those that
/// are closed on exec, and what is asked for here, in this order.
class ProgramStart {
  public:
    ProgramStart();
    ~ProgramStart();
    ProgramStart(const ProgramStart&) = delete;
    ProgramStart& operator=(const ProgramStart&) = delete;

    void open(int descriptor, const char* path, int flags);
    /// Makes `descriptor` another name of this process's `own`, which may be the same.
    void give(int own, int descriptor);

    /// A session of its own: the first terminal that it opens becomes its controlling one.
    void beginSession();
    /// A process group of its own, which Ctrl-C at this process's terminal does not reach.
    void beginGroup();

    /// The new process, -1 with errno set when the program cannot be run. `arguments` begin with its name.
    pid_t run(const std::string& path, std::vector<std::string> arguments) const;
    pid_t run(const std::string& path, std::vector<std::string> arguments, std::vector<std::string> environment) const;

  private:
    void addFlag(short flag);

    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

/// Pointers into `texts`, as the exec calls take them: the texts must stay as they are.
std::vector<char*> execWords(std::vector<std::string>& texts);

}  // namespace host
