/// What the console hands to the daemons that send control strings to the display.
#pragma once

#include <optional>
#include <string>

namespace host {

/// One control string, or one piece of a paced one.
struct TriggerRequest {
    std::string text;   ///< the stored string, or its piece, and its end
    std::string bytes;  ///< what goes to the display each time
    int sendCount = 1;
    int waits = 0;  ///< waits of five seconds before it is sent
    bool isLeading = true;
};

/// The bytes of a control string: hexadecimal words between blanks. What is no such word goes out as it is, as the end
/// characters do that follow the last word, a blank among them.
std::string decodeControlString(const std::string& text);

/// Nothing for a text that is no request. Counts that nobody would wait for are cut to a sensible size.
std::optional<TriggerRequest> parseTriggerRequest(const char* json);

/// "50 57 0d (PW.)"
std::string describeBytes(const std::string& bytes);

}  // namespace host
