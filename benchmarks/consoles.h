/// The consoles of the device that is measured, and what is typed on them.
#pragma once

#include "benchmarks/session.h"

#include <string>

namespace bench {

inline constexpr char askVolumeLine[] = "VOUT sta\r";

inline std::string volumeReply(int volume) { return "VOUT " + std::to_string(volume) + "\r\n"; }

/// Two blanks, so that the echo of the typed line does not look like the reply.
inline std::string setVolumeLine(int volume) { return "VOUT  " + std::to_string(volume) + '\r'; }

inline void askVolume(Talk& console) { console.ask(askVolumeLine, "VOUT -"); }

inline void setBroadcast(Talk& console, bool on) {
    const std::string word = on ? "on" : "off";
    console.ask("Broadcast  " + word + "\rBroadcast sta\r", "Broadcast " + word + "\r\n");
}

/// Consoles of the device, of which the first one sets.
class ConsoleCrowd {
  public:
    explicit ConsoleCrowd(host::ProgramStart program) : program_(std::move(program)) {}

    /// All of them listen when it returns.
    void growTo(std::size_t count) {
        while (crowd_.size() < count) awaitListening(crowd_.add(program_));
        change();  // what was shown before it is another volume
    }

    /// A change, which is stored and announced, until the last one shows it.
    void change() { set(volume_ == -20 ? -21 : -20); }

    /// What is stored already is announced all the same.
    void repeat() { set(volume_); }

    Crowd& all() { return crowd_; }

  private:
    void awaitListening(Talk& console) {
        constexpr std::chrono::milliseconds patience{20};
        do {
            for (const auto& other : crowd_)
                if (other.get() != &console) other->hasShown("");  // a console that nobody reads stops
            crowd_[0].type(setVolumeLine(volume_));
        } while (!console.awaitFor(patience, volumeReply(volume_)));
    }

    void set(int volume) {
        volume_ = volume;
        crowd_[0].type(setVolumeLine(volume));
        crowd_.await(volumeReply(volume));
    }

    host::ProgramStart program_;
    Crowd crowd_;
    int volume_ = -20;
};

/// In bytes: the memory of one kind ("Private_Dirty", "Pss") that a process has.
double memoryOf(pid_t pid, const std::string& kind);

}  // namespace bench
