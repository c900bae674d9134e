/// The control strings that are stored for the display, sent over its serial line or its network address.
#pragma once

#include "command/command.h"
#include "text/owned_text.h"
#include "text/text.h"
#include "video/trigger_end.h"

#include <cstddef>

/// Whether a string is sent in pieces.
inline constexpr char commandWaitLeaf[] =
    R"({"control":{"displayControl":{"output1":{"triger":{"command":{"commandWait":%s}}}}}})";

/// A transport to the display.
struct Transport {
    const char* busyLeaf;  ///< status: true while something is under way
    const char* service;   ///< the daemon that sends
};

inline constexpr Transport rs232{
    .busyLeaf = R"({"control":{"displayControl":{"output1":{"transmission":{"rs232":%s}}}}})",
    .service = "displayControl"};
inline constexpr Transport telnet{
    .busyLeaf = R"({"control":{"displayControl":{"output1":{"transmission":{"telnet":%s}}}}})",
    .service = "displayControlTelnetClient"};

/// A stored control string.
struct Trigger {
    const char* key;
    const char* answerKey;             ///< of what the display is to answer; null: nothing is stored
    const char* TriggerEnd::*endForm;  ///< how its end is appended
    std::size_t requestSize;           ///< room for a request with its NUL
};

inline constexpr Trigger powerOn{"on", "feedbackOn", &TriggerEnd::asHexWords, 1024};
inline constexpr Trigger powerOff{"off", "feedbackOff", &TriggerEnd::asHexWords, 1024};
inline constexpr Trigger mute{"mute", "feedbackMute", &TriggerEnd::asHexWords, 1024};
inline constexpr Trigger volumeUp{"volumePlus", nullptr, &TriggerEnd::asCharacters, 256};
inline constexpr Trigger volumeDown{"volumeMinus", nullptr, &TriggerEnd::asCharacters, 256};

/// Sends the stored string, in pieces when the setting says so. Nothing happens while the transport is
/// busy or when a text is missing. A failed call goes to standard error and frees the transport for the next trigger.
void sendTrigger(const Transport& transport, const Trigger& trigger);

/// A text of `command` in the display's settings: "content" or "end", and the trigger's key.
OwnedText readTriggerText(const char* group, const char* key);

/// Sends the trigger when the line is the row's name and nothing more; any other line does nothing.
template <const Transport& transport, const Trigger& trigger>
void pullTrigger(const Command& command) {
    if (equals(command.line, command.rowName)) sendTrigger(transport, trigger);
}

/// For the typed mute and volume rows: only the display button reaches these strings, their own rows do nothing.
void ignoreTrigger(const Command& command);
