#include "video/scaler_gate.h"

#include "command/log.h"
#include "settings/leaf.h"

bool readScalerModeStatus() {
    const std::optional<int> mode = readBoolean(R"({"video":{"vidProcess":{"scaler":{"scalerMode":%s}}}})");
    if (mode && isLogged(LOG_LEVEL_TRACE)) __printLog(LOG_LEVEL_TRACE, "[%s] scalerMode=%d\r\n", __func__, *mode);
    return mode == 1;
}
