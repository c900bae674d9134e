#include "console/dispatcher.h"

#include "console/broadcast.h"
#include "console/command_table.h"
#include "text/text.h"

void dispatchCommand(const char* line) {
    const char* start = skipSpaces(line);
    const CommandEntry* entry = findCommand(start);
    if (entry == nullptr) return reject(start);
    const char* argument = skipSpaces(start + entry->compareLength());
    entry->action({start, entry->name, argument, isBroadcastOn(), entry->leaf});
}
