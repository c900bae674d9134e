/// Steers a whole program on the device in memory from its environment. Each line of CMDD_DOUBLE is one of
///     config DOCUMENT · status DOCUMENT · fail FUNCTION · reply SERVICE METHOD TEXT
#include "tests/fake_platform/fake_platform.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace {

void runCommand(const std::string& line) {
    std::istringstream words(line);
    std::string verb, service, method, rest;
    words >> verb;
    if (verb == "reply") words >> service >> method;
    std::getline(words >> std::ws, rest);
    if (verb == "config") return fake_platform::setConfig(rest);
    if (verb == "status") return fake_platform::setStatus(rest);
    if (verb == "fail") return fake_platform::fail(rest);
    if (verb == "reply") return fake_platform::setReply(service, method, rest);
    std::fprintf(stderr, "CMDD_DOUBLE: %s\n", line.c_str());
    std::abort();
}

const bool isSteered = [] {  // NOLINT(cert-err58-cpp): what it may throw ends a console that cannot be steered
    std::istringstream lines(std::getenv("CMDD_DOUBLE"));
    for (std::string line; std::getline(lines, line);) runCommand(line);
    return true;
}();

}  // namespace
