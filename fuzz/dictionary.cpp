/// Prints the words of the command table as a dictionary for the fuzzers: "command" the names, "leaf" the templates.

#include "console/command_table.h"

#include <cstdio>
#include <cstring>

namespace {

/// An entry of a libFuzzer dictionary.
void printEntry(const char* word) {
    std::putchar('"');
    for (; *word != '\0'; ++word) {
        if (*word == '"' || *word == '\\') std::putchar('\\');
        std::putchar(*word);
    }
    std::puts("\"");
}

}  // namespace

int main(int argc, char** argv) {
    const bool areLeaves = argc > 1 && std::strcmp(argv[1], "leaf") == 0;
    for (const CommandEntry& row : commandTable()) {
        const char* word = areLeaves ? row.leaf : row.name;
        if (*word != '\0') printEntry(word);
    }
}
