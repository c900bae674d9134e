#include "host/base/note.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/display_command.h"
#include "host/daemons/transmitter.h"

namespace host {
namespace {

using namespace std::chrono_literals;

/// Nothing hangs on the line; what takes time is the bytes themselves, at 9600 baud.
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

class SerialDisplay {
  public:
    explicit SerialDisplay(Daemon& daemon) : line_(daemon.loop()), transmitter_(daemon.loop(), names, line_) {
        daemon.offer("HexRS232zone", [](const char* text) -> std::string {
            note("zone sends %s", describeBytes(decodeControlString(text)).c_str());
            return "ok";
        });
        offerTriggers(daemon, transmitter_);
    }

  private:
    static constexpr TransmitterNames names{"control.displayControl.output1.transmission.rs232", "TrigRS1"};

    SerialLine line_;
    Transmitter transmitter_;
};

}  // namespace

Service makeSerialDisplay(Daemon& daemon) { return std::make_shared<SerialDisplay>(daemon); }

}  // namespace host
