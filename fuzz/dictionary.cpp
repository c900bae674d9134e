/// Prints the command words as a dictionary for the fuzzers.

#include "console/command_table.h"

#include <cstdio>

int main() {
    for (const CommandEntry& row : commandTable()) std::printf("\"%s\"\n", row.name);
}
