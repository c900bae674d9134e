/// The programs that make up a device, found beside this one in the build tree.
#pragma once

#include <filesystem>

namespace host {

struct Programs {
    std::filesystem::path console;
    std::filesystem::path launcher;
    std::filesystem::path daemon;
    std::filesystem::path panel;
    std::filesystem::path standIn;

    static Programs find();
};

}  // namespace host
