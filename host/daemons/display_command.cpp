#include "host/daemons/display_command.h"

#include "host/base/note.h"
#include "host/daemons/daemon.h"

namespace host {
namespace {

struct DisplayControl {
    std::unique_ptr<DisplayLine> line;
    Transmitter transmitter;
};

std::string accept(Transmitter& transmitter, const char* text) {
    std::optional<TriggerRequest> request = parseTriggerRequest(text);
    if (!request) {
        note("not a trigger request: %s", text);
        return "fail not a request";
    }
    if (transmitter.accept(std::move(*request))) return "ok";
    note("too many requests are waiting");
    return "fail busy";
}

}  // namespace

Service controlDisplay(Daemon& daemon, std::unique_ptr<DisplayLine> line, const TransmitterNames& names) {
    DisplayLine& way = *line;
    const std::shared_ptr<DisplayControl> control(
        new DisplayControl{std::move(line), Transmitter(daemon.loop(), names, way)});
    daemon.offer("SetCmdOn", [&transmitter = control->transmitter](const char* text) -> std::string {
        return accept(transmitter, text);
    });
    return control;
}

}  // namespace host
