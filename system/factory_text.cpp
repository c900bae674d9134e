#include "system/factory_text.h"

#include "platform/factory_data.h"
#include "platform/shell.h"
#include "text/quoting.h"

#include <cerrno>

OwnedText readFactoryText(const char* key) {
    char* text = nullptr;
    factory_read_data(key, &text);
    return OwnedText(text);
}

bool writeFactoryText(const char* key, const char* value) {
    FixedText<256> line;
    line.appendFormat("/mnt/mtd/bin/factory_tool -w %s ", key);
    appendShellArgument(line, value);
    if (line.isCut()) {
        errno = EMSGSIZE;
        return false;
    }
    if (lsystem(line.c_str()) == 0) return true;
    errno = EIO;
    return false;
}
