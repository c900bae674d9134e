/// What the reference says of one command.
#pragma once

#include "console/command_entry.h"
#include "tools/command_reference/play.h"
#include "tools/command_reference/topics.h"

#include <string>
#include <vector>

struct Entry {
    const CommandEntry* row;
    std::string takes;                ///< the accepted values; empty where only the help text tells
    std::vector<std::string> leaves;  ///< path and, after " = ", the value of a new device
    std::string example;              ///< what is typed
    Played off;                       ///< with broadcast off
    Played on;                        ///< with broadcast on
};

/// One entry for each command of the topic, in the table's order; rows with the same name share one.
std::vector<Entry> entriesOf(const Topic& topic);
