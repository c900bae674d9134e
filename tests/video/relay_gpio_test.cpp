#include "video/relay_gpio.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// The kernel's GPIO files as ordinary ones.
class RelayGpio : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "gpio-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
        fs::create_directory(folder_ / "gpio206");
        for (const char* file : files) std::ofstream(folder_ / file) << "?";
    }
    void TearDown() override { fs::remove_all(folder_); }

    void turn(const char* state) const { switchRelay(state, folder_.c_str()); }

    std::string contents() const {
        std::ostringstream all;
        for (const char* file : files) all << std::ifstream(folder_ / file).rdbuf() << ' ';
        return all.str();
    }

    static constexpr const char* files[] = {"export", "gpio206/direction", "gpio206/value"};
    fs::path folder_;
};

TEST_F(RelayGpio, SetsTheLevelOfTheLine) {
    turn("on");
    EXPECT_EQ(contents(), "206 out 1 ");
    const auto descriptors = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    const auto before = descriptors();
    turn("off");
    EXPECT_EQ(contents(), "206 out 0 ");
    EXPECT_EQ(descriptors(), before);
}

TEST_F(RelayGpio, EndsTheProcessWhenAFileIsMissing) {
    // The complaints go to standard output, of which a death test sees nothing: it is sent to standard error there.
    const auto turnOn = [this] {
        dup2(STDERR_FILENO, STDOUT_FILENO);
        turn("on");
    };
    const char* complaints[] = {"^Cannot open export file.\r\n$", "^Cannot open direction file.\r\n$",
                                "^Cannot write value.\r\n$"};
    for (const int missing : {2, 1, 0}) {
        fs::remove(folder_ / files[missing]);
        EXPECT_EXIT(turnOn(), testing::ExitedWithCode(1), complaints[missing]);
    }
}

}  // namespace
