/// LPC calls whose reply is wanted at once.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace host {

/// The reply to a call; nothing with errno set when it fails or does not come within the limit.
std::optional<std::string> replyTo(const char* service, const char* method, const char* text,
                                   std::chrono::milliseconds limit);

}  // namespace host
