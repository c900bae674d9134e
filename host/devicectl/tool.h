/// Stands in, below the device root, for the tools that the console's shell lines call. The link by which this program
/// was started says which one it is.
#pragma once

#include "host/devicectl/verb.h"

#include <optional>

namespace host {

/// Runs the tool and returns its exit status; nothing where the program was started by another name. Nobody is served
/// outside of the tool's own device root.
std::optional<int> runTool(const Arguments& arguments);

}  // namespace host
