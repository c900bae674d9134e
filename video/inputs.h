/// The five sources of the output and the two physical inputs: which one is shown, what is connected, in which format.
#pragma once

#include "command/family.h"

/// x1AVx1 to x5AVx1: switches to the source in the row's name. The line must be that name and nothing more.
void switchSource(const Command& command);

/// Prints the source, then the connections of both inputs. Numbers above 9 are cut: "x12AVx".
void printSource(const Change& change);

inline constexpr Family sourceSwitch{.action = switchSource, .printer = printSource, .kind = LeafKind::number};

/// Status: "x3AVx1", the stored source; takes no argument. The switch rows print its changes.
void reportOutput(const Command& command);

inline constexpr Family outputReport{.action = reportOutput, .kind = LeafKind::number};

/// InputStatus1, InputStatus2: "InputStatus2 1" for the input that the row's name ends in; takes no argument.
void reportInput(const Command& command);

/// InputStatus, whatever the argument: "InputStatus 10": first the HDBaseT, then the HDMI input, each 0 where it cannot
/// be read.
void reportBothInputs(const Command& command);

/// Whether changed connections are shown at all.
inline constexpr char inputBroadcastLeaf[] = R"({"system":{"inputBroadcast":%s}})";

/// Shows both connections when one has changed, while they are to be shown.
void printInputStatus(const Change& change);

inline constexpr Family inputStatus{
    .action = reportBothInputs, .printer = printInputStatus, .kind = LeafKind::truthValue};

/// InputFormat1, InputFormat2: "InputFormat1 1920x1080p60:8bit:RGB", the timing and colour format that the input
/// receives, "--:--:--" without a stable timing; takes no argument. What cannot be read shows as 0 or nothing.
void reportInputFormat(const Command& command);

/// The same when the stability of the timing changed.
void printInputFormat(const Change& change);

inline constexpr Family inputFormat{
    .action = reportInputFormat, .printer = printInputFormat, .kind = LeafKind::truthValue};
