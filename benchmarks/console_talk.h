/// The lines that the measurements type, and what the consoles answer.
#pragma once

#include "benchmarks/pty_session.h"

#include <string>

namespace bench {

/// Ends a typed line: a line feed after it would be one more, empty line.
inline constexpr char enter[] = "\r";

inline constexpr char askVolumeLine[] = "VOUT sta\r";

inline std::string volumeReply(int volume) { return "VOUT " + std::to_string(volume) + "\r\n"; }

/// Two blanks, so that the echo of the typed line does not look like the reply.
inline std::string setVolumeLine(int volume) { return "VOUT  " + std::to_string(volume) + enter; }

inline void setVolume(PtySession& console, int volume) { console.ask(setVolumeLine(volume), volumeReply(volume)); }

inline void askVolume(PtySession& console) { console.ask(askVolumeLine, "VOUT -"); }

/// A console that has just started may not hear of the change yet: it is asked.
inline void setBroadcast(PtySession& console, bool on) {
    const std::string word = on ? "on" : "off";
    console.ask("Broadcast  " + word + "\rBroadcast sta\r", "Broadcast " + word + "\r\n");
}

/// The limit's console answers every line alike.
inline void askEcho(PtySession& console) { console.ask(askVolumeLine, "reply\r\n"); }

}  // namespace bench
