/// Runs a command line with the device's shell.
#ifndef PLATFORM_SHELL_H
#define PLATFORM_SHELL_H

#ifdef __cplusplus
extern "C" {
#endif

/// Runs `command` and waits for its end. Returns its exit status (0 is success), or -1 when it could not be run.
int lsystem(const char* command);

#ifdef __cplusplus
}
#endif
#endif
