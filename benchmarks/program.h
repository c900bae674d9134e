/// How a program is started.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct Program {
    std::string path;
    std::vector<std::string> arguments;    ///< the name it is started under first
    std::vector<std::string> environment;  ///< all that it gets
};

}  // namespace bench
