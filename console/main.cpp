/// The entry of a console: one process for one connection, which is its standard input, output and error.

#include "console/event_listener.h"
#include "console/line_reader.h"
#include "console/ports.h"
#include "console/relay.h"
#include "console/session.h"
#include "console/terminal.h"
#include "settings/leaf.h"
#include "system/network_leaves.h"
#include "text/text.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <pthread.h>

namespace {

int portOf(const char* programName) {
    for (const ConsolePort& port : consolePorts) {
        if (equals(programName, port.programName)) return port.reportedPort;
    }
    return consolePorts[0].reportedPort;
}

/// A reply is one write. The buffer's section is the last by name: so it begins on the page of all else that changes.
void bufferReplies() {
    [[gnu::section(".bss.zz_replies")]] static char buffer[8192];
    std::setvbuf(stdout, buffer, _IOLBF, sizeof buffer);
}

SessionContext session;  // outlives main(), which leaves the threads running

/// Room for a command's own texts and for the device's libraries below it. Unasked, some C libraries set 8 MB aside.
constexpr std::size_t threadStack = std::size_t{256} * 1024;

bool startThread(void* (*body)(void*)) {
    pthread_t thread;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, threadStack);
    const bool isStarted = pthread_create(&thread, &attributes, body, &session) == 0;
    pthread_attr_destroy(&attributes);
    return isStarted;
}

void startThreads() {
    expectListener();
    if (!startThread(idleThread) || !startThread(eventListenerThread)) {
        std::puts("pthread_create failed");
        std::exit(1);
    }
    // Without its relay the session is still a console.
    if (hasRelay(session.reportedPort)) startThread(relayThread);
}

}  // namespace

int main(int /*argc*/, char** argv) {
    std::signal(SIGHUP, onSignal);
    makeTerminalRaw();
    bufferReplies();
    session.reportedPort = portOf(argv[0]);
    // Every session is authenticated whatever the mode: no login dialogue is started here.
    static_cast<void>(readBoolean(loginModeLeaf));
    session.kind = 4;
    sessionAuthenticated = 1;
    startThreads();
    runLineReader(session);
    return 0;
}
