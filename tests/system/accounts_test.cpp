#include "tests/system/console.h"

namespace {

std::string account(const std::string& name, const std::string& password, const std::string& level = "Guest") {
    return R"({"username":")" + name + R"(","password":")" + password + R"(","level":")" + level + R"("})";
}

const std::string root = account("root", "secret", "Administrator");
const std::string listHead = "TCP/IP username & password list:\r\n";

class AccountsTest : public ConsoleTest {
  protected:
    AccountsTest() { setUsers(root); }
    static void setUsers(const std::string& users) { setConfig(R"({"account":{"users":[)" + users + "]}}"); }
    static std::string users() { return config(R"({"account":{"users":0}})"); }
};

TEST_F(AccountsTest, RefusesWhatIsNoNewAccount) {
    setUsers(root + "," + account("bob", "1"));
    for (const std::string line : {"IPAddUser", "IPAddUser al", "IPAddUser Bob x1", "IPAddUser ROOT x1",
                                   "IPAddUser al pass_1", "IPAddUser al x1 more"}) {
        EXPECT_EQ(type(line), refusal(line));
    }
    setUsers(root + "," + account("a", "1") + "," + account("b", "2") + "," + account("c", "3"));
    EXPECT_EQ(type("IPAddUser d 4"), refusal("IPAddUser d 4"));
    EXPECT_TRUE(updates().empty());
    EXPECT_TRUE(calls().empty());
}

TEST_F(AccountsTest, KeepsNamesOfAnyContentAndLength) {
    const std::string name = R"(b"},{"%n\)" + std::string(3000, 'x');
    EXPECT_EQ(type("IPAddUser  " + name + "  p1"), "IPAddUser  " + name + "  p1\r\nTCP/IP user was added\r\n");
    EXPECT_EQ(type("IPAddUser sta"), listHead + " - " + name + " & p1\r\n -\r\n");
    EXPECT_EQ(type("IPDelUser " + name), "IPDelUser " + name + "\r\nTCP/IP user was deleted\r\n");
    EXPECT_EQ(calls()[1], "systemd sshDelUser " + name);
    EXPECT_EQ(users(), "[" + root + "]");
}

TEST_F(AccountsTest, TellsWhatTheSystemServiceAnswers) {
    setReply("systemd", "sshAddUser", "failed: %n");
    EXPECT_EQ(type("IPAddUser a 1"), "IPAddUser a 1\r\n" + refusal("IPAddUser a 1"));
    EXPECT_EQ(calls(), Lines{"systemd sshAddUser " + account("a", "1")});
    fail("lpc_completion_wait");
    EXPECT_EQ(typeAndHear("IPAddUser b 1"), "IPAddUser b 1\r\n");
    fail("lpc_proxy_call_with_reply");
    EXPECT_EQ(typeAndHear("IPAddUser c 1"), "lpc_proxy_call: Input/output error\nIPAddUser c 1\r\n");
    EXPECT_EQ(users(), "[" + root + "," + account("a", "1") + "," + account("b", "1") + "," + account("c", "1") + "]");
    fail("lpc_proxy_call");
    EXPECT_EQ(typeAndHear("IPDelUser c"),
              "lpc_proxy_call: Input/output error\nIPDelUser c\r\nTCP/IP user was deleted\r\n");
}

TEST_F(AccountsTest, KeepsTheFirstAnAdministratorWhoeverIsDeleted) {
    setUsers(account("al", "1", "Administrator") + "," + account("Bob", "2") + "," + account("cy", "3"));
    EXPECT_EQ(type("IPDelUser AL"), "IPDelUser AL\r\nTCP/IP user was deleted\r\n");
    EXPECT_EQ(users(), "[" + account("Bob", "2", "Administrator") + "," + account("cy", "3") + "]");
    type("IPDelUser cy", "IPDelUser bob");
    EXPECT_EQ(users(), "[]");
}

TEST_F(AccountsTest, NeitherListsNorDeletesRoot) {
    EXPECT_EQ(type("IPAddUser sta"), listHead + " -\r\n");
    EXPECT_EQ(type("IPDelUser ROOT", "IPDelUser nobody", "IPDelUser"),
              refusal("IPDelUser ROOT") + refusal("IPDelUser nobody") + refusal("IPDelUser"));
    EXPECT_TRUE(updates().empty());
}

TEST_F(AccountsTest, AnswersNothingWithoutTheStore) {
    fail("user_config_query_to_json_token");
    setLogLevel(5);
    EXPECT_EQ(typeAndHear("IPAddUser a 1"), "");
    EXPECT_EQ(logLines(), Lines{"5 json_token_new_object"});
    EXPECT_EQ(typeAndHear("IPDelUser a"), "json_token_new_object: Input/output error\n");
}

}  // namespace
