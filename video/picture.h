/// Picture settings that are more than a number or a switch behind the scaler gate.
#pragma once

#include "command/command.h"
#include "settings/word_setting.h"
#include "video/name_list.h"
#include "video/scaler_gate.h"

/// Flips the counter that the video daemon watches, so that every reset is a change; takes no argument.
void resetPicture(const Command& command);

/// "mem1" copies the EDID of the output into the first memory.
void copyOutputEdid(const Command& command);

/// Shows the indexes and names of the preferred timings; takes no argument.
void listPreferredTimings(const Command& command);

/// Shows the indexes and names of the output resolutions.
void printOutputResolutions();

/// "letter box" is confirmed as "follow" on purpose.
inline constexpr Word aspectWords[] = {{"fill"}, {"follow"}, {.typed = "letter box", .confirmed = "follow"}};
inline constexpr WordRules aspectRules{.words = aspectWords, .gate = readScalerModeStatus};

inline constexpr NameList preferredTiming{.names = preferredTimings};
inline constexpr NameList outputResolution{
    .names = outputResolutions, .gate = readScalerModeStatus, .printList = printOutputResolutions};
