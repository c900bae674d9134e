#include "system/accounts.h"

#include "command/log.h"
#include "command/owned_token.h"
#include "platform/lpc.h"
#include "platform/user_config.h"
#include "settings/change_lock.h"
#include "text/fixed_text.h"
#include "text/text.h"
#include "text/words.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <strings.h>

namespace {

constexpr int accountLimit = 4;

/// Room for a typed line with its NUL.
constexpr std::size_t lineRoom = 200;

/// How long the system service may take for an SSH user, in milliseconds.
constexpr int sshReplyLimit = 9000;

/// Null members where the stored account has none. The texts belong to the document they were read from.
struct User {
    const char* name;
    const char* password;
};

struct DestroyCompletion {
    void operator()(lpc_completion* completion) const { lpc_completion_destroy(completion); }
};
using OwnedCompletion = std::unique_ptr<lpc_completion, DestroyCompletion>;

bool isSameName(const char* name, const char* other) { return strcasecmp(name, other) == 0; }

bool isRoot(const char* name) { return isSameName(name, "root"); }

bool isAlphanumeric(const char* text) {
    return std::all_of(text, text + std::strlen(text), [](unsigned char c) { return std::isalnum(c) != 0; });
}

using Path = FixedText<64>;

Path userPath(int position) {
    Path path;
    path.appendFormat("account.users[%d]", position);
    return path;
}

Path memberPath(Path path, const char* member) {
    if (path.size() > 0) path.append('.');
    path.append(member);
    return path;
}

OwnedToken readAccounts() { return OwnedToken(user_config_query_to_json_token(R"({"account":{}})")); }

int countUsers(json_token* accounts) {
    return json_token_array_length(json_token_object_walk_get_array(accounts, "account.users"));
}

User userAt(json_token* accounts, int position) {
    const auto member = [&](const char* name) {
        return json_token_object_walk_get_string(accounts, memberPath(userPath(position), name).c_str(), nullptr);
    };
    return {member("username"), member("password")};
}

void reportSetFailure(int result) {
    if (result != 0) std::printf("set_object: users[1] failed!");
}

/// `path`: where the account stands below `root`; empty for `root` itself.
void putUser(json_token* root, const Path& path, const User& user, const char* level) {
    const auto setMember = [&](const char* name, const char* value) {
        reportSetFailure(json_token_object_walk_set_string(root, memberPath(path, name).c_str(), value));
    };
    setMember("username", user.name);
    setMember("password", user.password);
    setMember("level", level);
}

bool isTaken(json_token* accounts, const char* name) {
    for (int position = 0; position < accountLimit; ++position) {
        const User user = userAt(accounts, position);
        if (user.name == nullptr) return false;
        if (isSameName(user.name, name)) return true;
    }
    return false;
}

/// Prints what there is of an account; returns false where the list ends.
bool listUser(const User& user) {
    if (user.name == nullptr) return false;
    const bool isListed = !isRoot(user.name);
    if (isListed) std::printf(" - %s &", user.name);
    if (user.password == nullptr) return false;
    if (isListed) std::printf(" %s\r\n", user.password);
    return true;
}

void listUsers() {
    printLine("TCP/IP username & password list:");
    const OwnedToken accounts = readAccounts();
    int position = 0;
    while (accounts && position < accountLimit && listUser(userAt(accounts.get(), position))) ++position;
    printLine(" -");
}

/// The result of a change of the accounts.
enum class Outcome {
    made,
    refused,
    failed,  ///< and reported
};

/// A call that was sent to the system service; `error` is the errno of one that could not be sent.
struct SshOrder {
    OwnedCompletion call;
    int error = 0;
};

void reportCallFailure(int error) {
    errno = error;
    std::perror("lpc_proxy_call");
}

/// Has the system service add the SSH user of a new account.
SshOrder orderSshUser(json_token* account) {
    if (account == nullptr) return {nullptr, ENOMEM};
    lpc_completion* call = nullptr;
    const int result = lpc_proxy_call_with_reply("systemd", "sshAddUser", json_token_to_string(account), &call);
    return {OwnedCompletion(call), result == 0 ? 0 : errno};
}

/// Prints the result of the call. The account stays in any case.
void reportSshUser(const Command& command, const SshOrder& order) {
    if (order.error != 0) return reportCallFailure(order.error);
    lpc_completion* call = order.call.get();
    if (lpc_completion_wait(call, sshReplyLimit) != 0) return;
    const char* reply = lpc_completion_data(call);
    if (reply != nullptr && startsWith(reply, "fail")) return reject(command);
    printLine("TCP/IP user was added");
}

/// An account document without accounts: an empty array, because a document without one would leave the accounts as
/// they are.
OwnedToken makeAccounts() {
    OwnedToken accounts(json_token_new_object());
    if (accounts)
        reportSetFailure(json_token_object_walk_set_object(accounts.get(), "account.users", json_token_parse("[]")));
    return accounts;
}

/// Copies the accounts that are not called `name`; returns whether any was. The list ends at an incomplete account.
bool copyOthers(json_token* from, json_token* to, const char* name) {
    const int count = countUsers(from);
    int position = 0;
    int copied = 0;
    for (; position < count; ++position) {
        const User user = userAt(from, position);
        if (user.name == nullptr || user.password == nullptr) break;
        if (isSameName(user.name, name)) continue;
        putUser(to, userPath(copied), user, copied == 0 ? "Administrator" : "Guest");
        ++copied;
    }
    return copied < position;
}

/// Adds an account as one step among all consoles. The call to the system service is made within it, so that the SSH
/// users change in the same order as the accounts; its answer is awaited later.
Outcome addAccount(const char* typed, SshOrder& order) {
    const ChangeLock lock;
    if (!lock) return Outcome::refused;
    const OwnedToken accounts = readAccounts();
    if (!accounts) {
        logTokenFailure();
        return Outcome::failed;
    }
    const int position = countUsers(accounts.get());
    const Words<2> words(typed, " ");
    if (position >= accountLimit || words.count() != 2 || !isAlphanumeric(words[1])) return Outcome::refused;
    if (isTaken(accounts.get(), words[0])) return Outcome::refused;
    json_token* entry = json_token_new_object();
    putUser(entry, {}, {words[0], words[1]}, "Guest");
    json_token* users = json_token_object_walk_get_array(accounts.get(), "account.users");
    reportSetFailure(json_token_array_put(users, position, entry));
    user_config_update(json_token_to_string(accounts.get()));
    order = orderSshUser(json_token_object_walk_get_object(accounts.get(), userPath(position).c_str()));
    return Outcome::made;
}

/// Deletes an account in the same way. `callError`: the errno of the call to the system service, 0 for one that it
/// answered.
Outcome deleteAccount(const char* name, int& callError) {
    const ChangeLock lock;
    if (!lock) return Outcome::refused;
    const OwnedToken accounts = readAccounts();
    if (!accounts) {
        std::perror("json_token_new_object");
        return Outcome::failed;
    }
    const OwnedToken others = makeAccounts();
    if (!others) {
        logTokenFailure();
        return Outcome::failed;
    }
    if (isRoot(name) || !copyOthers(accounts.get(), others.get(), name)) return Outcome::refused;
    user_config_update(json_token_to_string(others.get()));
    callError = lpc_proxy_call("systemd", "sshDelUser", name) == 0 ? 0 : errno;
    return Outcome::made;
}

}  // namespace

void addUser(const Command& command) {
    if (isEmpty(command.argument)) return reject(command);
    if (equals(command.argument, "sta")) return listUsers();
    if (std::strlen(command.line) >= lineRoom) return reject(command);
    SshOrder order;
    const Outcome outcome = addAccount(command.argument, order);
    if (outcome == Outcome::refused) reject(command);
    if (outcome != Outcome::made) return;
    printLine(command.line);
    reportSshUser(command, order);
}

void deleteUser(const Command& command) {
    if (isEmpty(command.argument)) return reject(command);
    if (std::strlen(command.line) >= lineRoom) return reject(command);
    int callError = 0;
    const Outcome outcome = deleteAccount(command.argument, callError);
    if (outcome == Outcome::refused) reject(command);
    if (outcome != Outcome::made) return;
    printLine(command.line);
    if (callError != 0) reportCallFailure(callError);
    printLine("TCP/IP user was deleted");
}
