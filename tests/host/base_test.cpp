#include "host/base/atomic_file.h"
#include "host/base/device_root.h"
#include "host/base/factory_store.h"
#include "host/base/log_levels.h"
#include "platform/factory_data.h"
#include "platform/logger.h"
#include "platform/shell.h"
#include "tests/host/children.h"
#include "tests/host/test_root.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>

namespace {

std::string lastLogLine() {
    std::string log = logText();
    log.pop_back();
    return log.substr(log.rfind('\n') + 1);
}

std::string factoryText(const char* key) {
    char* text = nullptr;
    if (factory_read_data(key, &text) != 0) return text == nullptr ? "(none)" : "(left over)";
    std::string copy = text;
    std::free(text);
    return copy;
}

TEST(Logger, WritesOneLineWhateverTheText) {
    errno = EXDEV;
    __printLog(5, "[%s]\tscalerMode=%d\x1b[1m \\ \r\n", "name", 1);
    EXPECT_EQ(EXDEV, errno);
    const std::string line = lastLogLine();
    EXPECT_EQ("] 5 [name]\\tscalerMode=1\\033[1m \\\\ ", line.substr(line.find(']'))) << line;
    EXPECT_EQ(std::string("2026-11-21T03:31:19.123Z ").size(), line.find(program_invocation_short_name)) << line;
    __printLog(5, "%s", std::string(100'000, '\n').append("x").c_str());
    EXPECT_LT(lastLogLine().size(), 5000U);
}

TEST(Logger, LevelsChangeInAllProcessesAtOnce) {
    EXPECT_EQ(LOG_LEVEL_ERROR, __logLevels[LOG_CATEGORY_CONSOLE]);
    const pid_t child = startChild([] { EXPECT_TRUE(host::setLogLevel("console", LOG_LEVEL_TRACE)); });
    EXPECT_EQ(0, statusOf(child));
    EXPECT_EQ(LOG_LEVEL_TRACE, __logLevels[LOG_CATEGORY_CONSOLE]);
    EXPECT_FALSE(host::setLogLevel("kitchen", LOG_LEVEL_TRACE));
    EXPECT_TRUE(host::resetLogLevels());
    EXPECT_EQ(LOG_LEVEL_ERROR, __logLevels[LOG_CATEGORY_CONSOLE]);
}

TEST(FactoryData, KeepsAnyTextUnderPlainKeys) {
    EXPECT_TRUE(host::prepareFactoryData());
    EXPECT_EQ("02:00:00:12:34:56", factoryText("MacAddr"));
    EXPECT_TRUE(host::writeFactoryData("SerialNumber", "x;touch y\n"));
    EXPECT_TRUE(host::prepareFactoryData()) << "which keeps what is there";
    EXPECT_EQ("x;touch y\n", factoryText("SerialNumber"));
    EXPECT_TRUE(host::writeFactoryData("SerialNumber", ""));
    EXPECT_EQ("", factoryText("SerialNumber"));
    EXPECT_EQ("(none)", factoryText("Unknown"));
    for (const char* key : {"", ".", "..", "../log/device.log", "a/b", "a b", ".hidden", "a\n"}) {
        EXPECT_FALSE(host::writeFactoryData(key, "text")) << key;
        EXPECT_EQ("(none)", factoryText(key)) << key;
    }
    for (const auto& entry : std::filesystem::directory_iterator(host::inRoot("factory"))) {
        EXPECT_NE('.', entry.path().filename().string()[0]) << "left over: " << entry.path();
    }
}

}  // namespace
