/// Settings with the words "on", "off" and "sta" over a stored truth value.
#pragma once

#include "command/family.h"

void setSwitch(const Command& command);

/// The same; returns true when a change has been confirmed here.
bool changeSwitch(const Command& command);

/// Never confirms itself, not even with broadcast off; the listener prints the change (oddity 8).
void setUnconfirmedSwitch(const Command& command);

/// Shows 1 and 0, and nothing for any other number.
void printSwitch(const Change& change);

inline constexpr Word straightWords[] = {{"on", "true"}, {"off", "false"}};
/// Oddity 9.
inline constexpr Word invertedWords[] = {{"on", "false"}, {"off", "true"}};

inline constexpr Family onOffSwitch{
    .action = setSwitch, .printer = printSwitch, .kind = LeafKind::truthValue, .words = straightWords};

inline constexpr Family invertedSwitch{
    .action = setSwitch, .printer = printSwitch, .kind = LeafKind::truthValue, .words = invertedWords};

inline constexpr Family unconfirmedSwitch{
    .action = setUnconfirmedSwitch, .printer = printSwitch, .kind = LeafKind::truthValue, .words = straightWords};

template <Gate gate>
inline constexpr Family gatedSwitch{
    .action = setSwitch, .printer = printSwitch, .kind = LeafKind::truthValue, .words = straightWords, .gate = gate};
