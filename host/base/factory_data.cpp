#include "platform/factory_data.h"

#include "host/base/atomic_file.h"
#include "host/base/device_root.h"
#include "host/base/factory_store.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace host {
namespace {

struct FactoryEntry {
    const char* key;
    const char* text;
};

constexpr FactoryEntry newDevice[] = {
    {"MacAddr", "02:00:00:12:34:56"}, {"SerialNumber", "SN00000001"}, {"ManufactoryID", "0001"}, {"ProductID", "0021"},
    {"FirmwareVer", "1.0.0"},         {"AppImgVer", "1.0.0"},
};

/// A key is a file name, so it must not be a path.
bool isKey(const char* key) {
    static constexpr char plain[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-";
    return *key != '\0' && key[std::strspn(key, plain)] == '\0';
}

std::string fileOf(const char* key) { return inRoot("factory/") + key; }

}  // namespace

bool writeFactoryData(const char* key, const char* text) {
    if (!isKey(key)) {
        errno = EINVAL;
        return false;
    }
    return replaceFile(fileOf(key), text);
}

bool prepareFactoryData() {
    if (mkdir(inRoot("factory").c_str(), 0700) != 0 && errno != EEXIST) return false;
    for (const FactoryEntry& entry : newDevice) {
        const bool isMissing = access(fileOf(entry.key).c_str(), F_OK) != 0;
        if (isMissing && !writeFactoryData(entry.key, entry.text)) return false;
    }
    return true;
}

}  // namespace host

int factory_read_data(const char* key, char** text) {
    *text = nullptr;
    if (!host::isKey(key)) return -1;
    const std::optional<std::string> stored = host::readFile(host::fileOf(key));
    if (stored) *text = strdup(stored->c_str());
    return *text != nullptr ? 0 : -1;
}
