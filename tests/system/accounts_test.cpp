#include "tests/system/console.h"

namespace {

std::string account(const std::string& name, const std::string& password, const std::string& level = "Guest") {
    return R"({"username":")" + name + R"(","password":")" + password + R"(","level":")" + level + R"("})";
}

class AccountsTest : public ConsoleTest {
  protected:
    AccountsTest() { setUsers(root); }
    static void setUsers(const std::string& users) { setConfig(R"({"account":{"users":[)" + users + "]}}"); }
    static std::string users() { return config(R"({"account":{"users":0}})"); }

    const std::string root = account("Root", "secret", "Administrator");
};

TEST_F(AccountsTest, HoldsFourAndListsAllButRoot) {
    setUsers(account("a", "1") + "," + root + "," + account("b", "2") + "," + account("c", "3"));
    EXPECT_EQ(type("IPAddUser d 4"), refusal("IPAddUser d 4"));
    EXPECT_EQ(type("IPAddUser sta"), "TCP/IP username & password list:\r\n - a & 1\r\n - b & 2\r\n - c & 3\r\n -\r\n");
}

TEST_F(AccountsTest, KeepsNamesOfAnyContentAndLength) {
    const std::string name = R"(b"},{"%n\)" + std::string(3000, 'x');
    EXPECT_EQ(type("IPAddUser  " + name + "  p1"), "IPAddUser  " + name + "  p1\r\nTCP/IP user was added\r\n");
    EXPECT_NE(type("IPAddUser sta").find(" - " + name + " & p1\r\n -\r\n"), std::string::npos);
    EXPECT_EQ(type("IPDelUser " + name), "IPDelUser " + name + "\r\nTCP/IP user was deleted\r\n");
    EXPECT_EQ(calls()[1], "systemd sshDelUser " + name);
    EXPECT_EQ(users(), "[" + root + "]");
}

TEST_F(AccountsTest, KeepsAnAccountThatTheSystemServiceRefuses) {
    setReply("systemd", "sshAddUser", "failed: %n");
    EXPECT_EQ(type("IPAddUser a 1"), "IPAddUser a 1\r\n" + refusal("IPAddUser a 1"));
    EXPECT_EQ(calls(), Lines{"systemd sshAddUser " + account("a", "1")});
    EXPECT_EQ(users(), "[" + root + "," + account("a", "1") + "]");
}

TEST_F(AccountsTest, KeepsTheFirstAnAdministratorWhoeverIsDeleted) {
    setUsers(account("al", "1", "Administrator") + "," + account("Bob", "2") + "," + account("cy", "3"));
    EXPECT_EQ(type("IPDelUser AL"), "IPDelUser AL\r\nTCP/IP user was deleted\r\n");
    EXPECT_EQ(users(), "[" + account("Bob", "2", "Administrator") + "," + account("cy", "3") + "]");
    type("IPDelUser cy", "IPDelUser bob");
    EXPECT_EQ(users(), "[]");
}

}  // namespace
