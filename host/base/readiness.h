/// How a process of the device reports to the process that started it that it is ready.
#pragma once

#include <string_view>

namespace host {

/// The descriptor on which the supervisor waits for the line of each that it starts.
inline constexpr int readyDescriptor = 3;

/// Names the descriptor on which the starter waits for the line, in the environment of the started process.
inline constexpr char readyDescriptorVariable[] = "READY_FD";

/// Writes `text` as one line to the starter's descriptor, where there is one, and closes it. Ends the process when the
/// starter is gone.
void announceReady(std::string_view text);

}  // namespace host
