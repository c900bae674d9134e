#include "console/login.h"

#include "command/log.h"
#include "command/owned_token.h"
#include "console/session.h"
#include "console/terminal.h"
#include "platform/lpc.h"
#include "platform/user_config.h"
#include "platform/user_status.h"
#include "text/fixed_text.h"
#include "text/text.h"

#include <cstdio>
#include <cstdlib>
#include <sys/select.h>
#include <termios.h>
#include <unistd.h>

namespace {

using Path = FixedText<64>;

/// The account whose user name was accepted.
int loginUserIndex = 0;

void leaveCanonicalMode() {
    termios attributes;
    if (tcgetattr(STDIN_FILENO, &attributes) != 0) exitWithError("tcgetattr");
    attributes.c_lflag &= ~static_cast<tcflag_t>(ICANON);
    attributes.c_cc[VTIME] = 1;
    if (tcsetattr(STDIN_FILENO, TCSANOW, &attributes) != 0) exitWithError("tcsetattr");
}

bool waitForAnswer(int quietTime) {
    fd_set input;
    FD_ZERO(&input);
    FD_SET(STDIN_FILENO, &input);
    timeval limit{quietTime / 1000, quietTime % 1000 * 1000L};
    const int ready = select(STDIN_FILENO + 1, &input, nullptr, nullptr, &limit);
    if (ready < 0) exitWithError("select Error");
    return ready > 0;
}

Path elementPath(const char* array, int index, const char* member) {
    Path path;
    path.appendFormat("%s[%d].%s", array, index, member);
    return path;
}

const char* accountText(json_token* root, int index, const char* member) {
    return json_token_object_walk_get_string(root, elementPath("account.users", index, member).c_str(), nullptr);
}

/// Index of the account with this user name; -1 when there is none.
int findAccount(json_token* root, const char* userName) {
    const int count = json_token_array_length(json_token_object_walk_get_array(root, "account.users"));
    for (int index = 0; index < count; ++index) {
        const char* name = accountText(root, index, "username");
        if (name != nullptr && equals(name, userName)) return index;
    }
    return -1;
}

void takeUserName(LoginState& state, int& attempts, json_token* root, const char* userName) {
    const int index = findAccount(root, userName);
    if (index >= 0) {
        loginUserIndex = index;
        state = expectingPassword;
    } else {
        loginReport(false);
    }
    ++attempts;
}

void takePassword(LoginState& state, json_token* root, const char* password) {
    const char* expected = accountText(root, loginUserIndex, "password");
    if (expected != nullptr && equals(password, expected)) {
        state = loggedIn;
        loginReport(true);
        sessionAuthenticated = 1;
        std::printf("\nWelcome to Telnet.");
    } else {
        loginReport(false);
        state = expectingUserName;
        loginUserIndex = 0;
    }
    std::puts("\r");
}

int refuseWithoutAccounts(LoginState state) {
    logTokenFailure();
    if (state == expectingPassword) loginUserIndex = 0;
    return state;
}

/// The hardware address where it is known, else the network address; null when the launcher named no client.
const char* clientIdentity() {
    const char* hardwareAddress = std::getenv("TELNET_CLIENT_MAC");
    if (hardwareAddress == nullptr || !isEmpty(hardwareAddress)) return hardwareAddress;
    return std::getenv("TELNET_CLIENT_IP");
}

}  // namespace

int loginReadInput(char* buffer, std::size_t size, int quietTime) {
    leaveCanonicalMode();
    ssize_t length = 0;
    while (waitForAnswer(quietTime)) {
        length = read(STDIN_FILENO, buffer, size - 1);
        if (length < 0) length = 0;
        buffer[length] = '\0';
        if (length == 0) usleep(30'000);  // a lost connection stays readable; without a pause this would spin
    }
    return static_cast<int>(length);
}

bool loginIsLocked(const char* clientId) {
    static constexpr char list[] = "network.http.bruteForceAttacks.loginFailedList";
    if (clientId == nullptr) return false;
    const OwnedToken root(user_status_query_to_json_token(R"({"network":{"http":{"bruteForceAttacks":{}}}})"));
    const int count = json_token_array_length(json_token_object_walk_get_array(root.get(), list));
    for (int index = 0; index < count; ++index) {
        const Path id = elementPath(list, index, "id");
        if (!equals(json_token_object_walk_get_string(root.get(), id.c_str(), ""), clientId)) continue;
        const Path isLock = elementPath(list, index, "isLock");
        if (json_token_object_walk_get_boolean(root.get(), isLock.c_str(), 0) != 0) return true;
    }
    return false;
}

int loginStep(LoginState& state, int& attempts, const char* input) {
    if (state == loggedIn) return 1;
    const OwnedToken root(user_config_query_to_json_token(R"({"account":{}})"));
    if (!root) return refuseWithoutAccounts(state);
    if (state == expectingUserName) {
        takeUserName(state, attempts, root.get(), input);
    } else {
        takePassword(state, root.get(), input);
    }
    return 0;
}

bool loginReport(bool success) {
    const char* client = clientIdentity();
    if (client == nullptr) return false;
    return lpc_proxy_call("bruteForceAttacksd", success ? "loginSuccessEvent" : "cgiLoginFailedMacaddr", client) == 0;
}
