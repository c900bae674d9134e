/// The device in memory as every input finds it.
#pragma once

#include "tests/fake_platform/fake_platform.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <unistd.h>

namespace fuzz {

/// Ends the run, which makes the input a finding, unless `holds`. `seen` is shown beside the broken promise.
inline void require(bool holds, const char* promise, const std::string& seen = "") {
    if (holds) return;
    dprintf(STDERR_FILENO, "broken promise: %s\n%s\n", promise, seen.c_str());
    std::abort();
}

/// What the console under test writes goes nowhere: the terminal belongs to the fuzzer, whose findings need its
/// standard error.
void silence();

/// While there is one, every leaf that a command reads or writes has a value, broadcast is off and nothing fails.
/// Afterwards nothing is left, so that a leak of the program's stands out.
class Device {
  public:
    Device();
    ~Device() { fake_platform::reset(); }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
};

/// Path and value, as JSON text, of each leaf. An array is a leaf, and a text that is no JSON has one without a path.
using Leaves = std::map<std::string, std::string>;

Leaves leavesOf(const std::string& document);

/// Of both stores.
Leaves storedLeaves();

}  // namespace fuzz
