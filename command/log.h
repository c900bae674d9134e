/// Lines for the device logger. Which of them are written is the device's choice, asked anew for each line.
#pragma once

#include "platform/logger.h"

inline bool isLogged(int level) { return __logLevels[LOG_CATEGORY_CONSOLE] >= level; }

/// The log line of a settings or status write that the store refused.
inline void logWriteFailure() {
    if (isLogged(LOG_LEVEL_ERROR)) __printLog(LOG_LEVEL_ERROR, "user_config_update");
}

/// The log line of an account document that cannot be read or made.
inline void logTokenFailure() {
    if (isLogged(LOG_LEVEL_ERROR)) __printLog(LOG_LEVEL_ERROR, "json_token_new_object");
}
