#include "host/base/device_root.h"

#include "text/owned_text.h"

#include <cstdlib>
#include <unistd.h>

namespace host {
namespace {

/// Every console asks for it on the way to its first reply.
std::string findRoot() {
    const char* path = std::getenv(deviceRootVariable);
    std::string root = path != nullptr ? path : ".";
    const OwnedText workingFolder(root.starts_with('/') ? nullptr : getcwd(nullptr, 0));
    if (workingFolder) root = std::string(workingFolder.get()) + "/" + root;
    while (root.size() > 1 && root.back() == '/') root.pop_back();
    return root;
}

}  // namespace

const std::string& deviceRoot() {
    static const std::string root = findRoot();
    return root;
}

std::string inRoot(std::string_view path) { return deviceRoot() + "/" + std::string(path); }

void setDeviceRoot(const std::string& path) { setenv(deviceRootVariable, path.c_str(), 1); }

}  // namespace host
