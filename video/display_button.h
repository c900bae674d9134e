/// The display button (DispBtn) and the CEC commands for the display.
#pragma once

#include "command/family.h"

/// The setting that says how the display is controlled.
inline constexpr char controlTypeLeaf[] = R"({"control":{"displayControl":{"output1":{"controlType":"%s"}}}})";

/// DispBtn: "on", "off" and "tog" store the power word and confirm it, on all consoles when broadcast is on; "sta"
/// shows it. "mute", "vol+" and "vol-" send the stored string of the configured control type, or with CEC the word.
void pressDisplayButton(const Command& command);

/// TrigCEC on | off | vol+ | vol- | mute: has the inter-MCU daemon send the command of the word and announces the word
/// without storing it. A failed call goes to standard error.
void triggerCec(const Command& command);

inline constexpr Word cecWords[] = {{"on"}, {"off"}, {"vol+"}, {"vol-"}, {"mute"}};
inline constexpr Family cecTrigger{
    .action = triggerCec, .printer = printText, .kind = LeafKind::text, .words = cecWords};
