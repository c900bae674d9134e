#include "host/base/device_root.h"

#include <cstdlib>
#include <filesystem>

namespace host {
namespace {

std::string findRoot() {
    const char* path = std::getenv(deviceRootVariable);
    std::error_code error;
    std::string root = std::filesystem::absolute(path != nullptr ? path : ".", error).lexically_normal().string();
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
