#include "host/daemons/display_command.h"

#include "host/base/note.h"
#include "host/daemons/daemon.h"
#include "host/daemons/transmitter.h"

namespace host {

void offerTriggers(Daemon& daemon, Transmitter& transmitter) {
    daemon.offer("SetCmdOn", [&transmitter](const char* text) -> std::string {
        std::optional<TriggerRequest> request = parseTriggerRequest(text);
        if (!request) {
            note("not a trigger request: %s", text);
            return "fail not a request";
        }
        if (transmitter.accept(std::move(*request))) return "ok";
        note("too many requests are waiting");
        return "fail busy";
    });
}

}  // namespace host
