#include "console/dispatcher.h"

#include "console/command_table.h"
#include "console/event_listener.h"
#include "settings/write_path.h"
#include "text/text.h"

void dispatchCommand(const char* line) {
    const char* start = skipSpaces(line);
    const CommandEntry* entry = findCommand(start);
    if (entry == nullptr) return reject(start);
    const char* argument = skipSpaces(start + entry->compareLength());
    const bool broadcast = isBroadcastOn();
    if (!equals(argument, "sta")) awaitListener();  // a query changes nothing, so that no event has to be shown
    entry->family.action({start, entry->name, argument, broadcast, entry->leaf, entry->family});
}
