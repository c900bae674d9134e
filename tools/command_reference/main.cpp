/// Writes the command reference, made from the command table: command_reference markdown|man
///
/// What a command answers is not told but played: each example is typed at a console on a new device in memory, once
/// with broadcast off and once with broadcast on.
#include "tools/command_reference/entry.h"
#include "tools/command_reference/play.h"
#include "tools/command_reference/topics.h"
#include "tools/command_reference/writer.h"

#include <cstdio>
#include <map>

int main(int argc, char** argv) {
    const Writer* writer = argc == 2 ? findWriter(argv[1]) : nullptr;
    if (writer == nullptr) {
        std::fprintf(stderr, "usage: %s markdown|man\n", argv[0]);
        return 2;
    }
    startListener();
    std::map<const Topic*, std::vector<Entry>> entries;
    for (const Topic& topic : topics()) entries[&topic] = entriesOf(topic);
    std::fputs(writer->opening, stdout);
    for (const Topic& topic : topics()) writer->listTopic(topic, entries[&topic]);
    for (const Topic& topic : topics()) {
        writer->beginTopic(topic);
        for (const Entry& entry : entries[&topic]) writer->write(entry);
    }
    std::fputs(writer->closing, stdout);
    return 0;
}
