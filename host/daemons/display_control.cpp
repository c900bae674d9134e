#include "host/base/note.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/transmitter.h"

namespace host {
namespace {

using namespace std::chrono_literals;

/// No display is connected. Sending takes as long as the bytes take at 9600 baud.
class SerialLine : public Transmitter {
  public:
    explicit SerialLine(Daemon& daemon)
        : Transmitter(daemon, "TrigRS1", "control.displayControl.output1.transmission.rs232"),
          sent_(daemon.loop(), [this] { startNext(); }) {}

  private:
    void transmit(const std::string& bytes) override { sent_.start(1ms * bytes.size()); }

    Timer sent_;
};

}  // namespace

Service makeDisplayControl(Daemon& daemon) {
    daemon.offer("HexRS232zone", [](const char* text) -> std::string {
        note("zone sends %s", describeBytes(decodeControlString(text)).c_str());
        return "ok";
    });
    return std::make_shared<SerialLine>(daemon);
}

}  // namespace host
