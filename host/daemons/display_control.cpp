#include "host/base/note.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/transmitter.h"

namespace host {
namespace {

using namespace std::chrono_literals;

/// No display is connected. Sending takes as long as the bytes take at 9600 baud.
class SerialLine : public DisplayLine {
  public:
    explicit SerialLine(EventLoop& loop) : sent_(loop, [this] { done_(); }) {}

    void send(const std::string& bytes, Callback done) override {
        done_ = std::move(done);
        sent_.start(1ms * bytes.size());
    }

  private:
    Callback done_;
    Timer sent_;
};

}  // namespace

Service makeDisplayControl(Daemon& daemon) {
    daemon.offer("HexRS232zone", [](const char* text) -> std::string {
        note("zone sends %s", describeBytes(decodeControlString(text)).c_str());
        return "ok";
    });
    return std::make_shared<Transmitter>(daemon, "TrigRS1", "control.displayControl.output1.transmission.rs232",
                                         std::make_unique<SerialLine>(daemon.loop()));
}

}  // namespace host
