#include "tests/system/console.h"

namespace {

/// What goes to the log and to standard error when a platform function fails, and the reply behind it.
std::string hear(const std::string& failing, const std::string& line) {
    reset();
    setConfig(R"({"account":{"users":[{"username":"al","password":"1"}]}})");
    setLogLevel(5);
    fail(failing);
    std::string reply;
    std::string heard = captureErrors([&] { reply = typed(line); });
    for (const std::string& logged : logLines()) heard += logged + "\n";
    return heard + reply;
}

TEST_F(ConsoleTest, SaysWhatFailedWhereItBelongs) {
    const struct {
        std::string function, line, expected;
    } cases[] = {
        {"user_config_update", "IPPort 24", "5 user_config_update\n"},
        {"user_config_update", "IPLogin on", "5 user_config_update\n"},
        {"user_config_update", "IPStatic 1.2.3.4 5.6.7.8 9.9.9.9",
         "5 user_config_update\nIPStatic 1.2.3.4 5.6.7.8 9.9.9.9\r\n"},
        {"user_config_update", "dbg977", "5 user_config_update\nInto 977 Debug Mode...\r\n"},
        {"user_status_update", "debug on", "5 user_config_update\ndebug on\r\n"},
        {"user_config_query_to_json_token", "IPAddUser b 1", "5 json_token_new_object\n"},
        {"user_config_query_to_json_token", "IPDelUser al", "json_token_new_object: Input/output error\n"},
        {"eventbus_publish", "Mreset",
         "publishEvent(UpgradeSlaveVersionQuery SYSTEM_CMD_REQ_DEFAULT!): Input/output error\n"},
        {"lpc_proxy_call", "IPPort 24", "lpc_proxy_call: Input/output error\nIPPort 24\r\n"},
        {"lpc_proxy_call", "Zebulax on",
         "lpc_proxy_call receiveFromUartString: Input/output error\n\033[1;33mKX_Display On\033[0m\r\n"},
        {"lpc_proxy_call", "IPDelUser al",
         "lpc_proxy_call: Input/output error\nIPDelUser al\r\nTCP/IP user was deleted\r\n"},
        {"lpc_proxy_call_with_reply", "IPAddUser b 1", "lpc_proxy_call: Input/output error\nIPAddUser b 1\r\n"},
        {"lpc_completion_wait", "IPAddUser b 1", "IPAddUser b 1\r\n"},
        {"lsystem", "SQrnPID 7", "factory_write_data: Input/output error\n"},
        {"lsystem", "SQrnMac 0-1-2-3-4-5", ""},
    };
    for (const auto& [function, line, expected] : cases) EXPECT_EQ(hear(function, line), expected) << function;
}

}  // namespace
