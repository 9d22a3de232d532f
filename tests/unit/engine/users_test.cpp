// SPDX-License-Identifier: Apache-2.0
// Users files: what is accepted, and what the one line says that refuses one.
#include <cstdlib>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "engine/passwords.h"
#include "host/engine/password_hash.h"
#include "host/engine/users.h"

namespace {

class UsersTest : public ::testing::Test {
  protected:
    // Loads a file of that text; the error, or "" when it was taken.
    std::string load(const std::string& text, mode_t mode = 0600)
    {
        PrivateFile file(text, mode);
        engine::Options options;
        options.users_file = file.path();
        std::string error;
        loaded = engine::load_credentials(options, &error);
        EXPECT_EQ(loaded == nullptr, !error.empty());
        std::size_t at = error.find(file.path());
        return at == 0 ? "FILE" + error.substr(file.path().size()) : error;
    }

    std::shared_ptr<const engine::Credentials> loaded;
    std::string ann = "ann:admin:" + hash_of("first");
};

} // namespace

TEST_F(UsersTest, ReadsUsersBlankLinesAndRemarks)
{
    ASSERT_EQ(load("# who\n\n" + ann + "\r\nbob.b-1_X:operator:" + hash_of("second") + "  \n"), "");
    ASSERT_EQ(loaded->users.size(), 2U);
    EXPECT_EQ(loaded->find("ann")->role, engine::Role::Admin);
    EXPECT_EQ(loaded->find("bob.b-1_X")->role, engine::Role::Operator);
    EXPECT_TRUE(engine::password_matches(loaded->find("bob.b-1_X")->hash, "second"));
    EXPECT_EQ(loaded->find("Ann"), nullptr);
    EXPECT_TRUE(loaded->asks_at_login());
}

TEST_F(UsersTest, RefusesWrongLinesWithTheirNumber)
{
    EXPECT_EQ(load(ann + "\nann\n"), "FILE:2: expected name:role:hash");
    EXPECT_EQ(load("ann:admin\n"), "FILE:1: expected name:role:hash");
    EXPECT_EQ(load("\n:admin:x\n"), "FILE:2: a name has 1 to 32 letters, digits, '_', '.' and '-'");
    EXPECT_EQ(load("a b:admin:x\n"), "FILE:1: a name has 1 to 32 letters, digits, '_', '.' and '-'");
    EXPECT_EQ(load("-ann:admin:x\n"), "FILE:1: a name has 1 to 32 letters, digits, '_', '.' and '-'");
    EXPECT_EQ(load(std::string(33, 'a') + ":admin:x\n"),
              "FILE:1: a name has 1 to 32 letters, digits, '_', '.' and '-'");
    EXPECT_EQ(load("ann:root:x\n"), "FILE:1: the role is none of monitor, operator, admin");
    EXPECT_EQ(load(ann + "\n" + ann + "\n"), "FILE:2: the name occurs twice");
    EXPECT_EQ(load("# nobody\n"), "FILE: it names no user");
    EXPECT_EQ(load(""), "FILE: it names no user");
}

TEST_F(UsersTest, RefusesWhatIsNoHash)
{
    const std::string refusal = "FILE:1: the hash is none (make one with epon-console --hash-password)";
    std::string good = hash_of("first");
    EXPECT_EQ(load("ann:admin:" + good.substr(0, good.size() - 1) + "\n"), refusal);
    EXPECT_EQ(load("ann:admin:" + good + "x\n"), refusal);
    EXPECT_EQ(load("ann:admin:secret\n"), refusal);
    EXPECT_EQ(load("ann:admin:\n"), refusal);
    EXPECT_EQ(load("ann:admin:*\n"), refusal);
    EXPECT_EQ(load("ann:admin:$1$vXdXWDIm$4edj.MZaiK0tIozAY6fEc/\n"), refusal) << "an outdated method";
}

TEST_F(UsersTest, RefusesAFileThatOthersMayUse)
{
    for (mode_t mode : {0604U, 0602U, 0620U, 0644U, 0666U, 0601U})
        EXPECT_EQ(load(ann, mode), "FILE: others may use it (chmod 600 is right)") << std::oct << mode;
    for (mode_t mode : {0600U, 0400U, 0640U, 0440U})
        EXPECT_EQ(load(ann, mode), "") << std::oct << mode;
}

TEST_F(UsersTest, RefusesWhatIsNoPlainFile)
{
    engine::Options options;
    std::string error;
    options.users_file = "/dev/null";
    EXPECT_EQ(engine::load_credentials(options, &error), nullptr);
    EXPECT_EQ(error, "/dev/null: it is not a plain file");
    options.users_file = "/no/such/file";
    EXPECT_EQ(engine::load_credentials(options, &error), nullptr);
    EXPECT_EQ(error, "/no/such/file: No such file or directory");
    EXPECT_EQ(load(std::string(1025 * 1024, '#')), "FILE: it is too large");
    options.password_file = "/dev/null";
    EXPECT_EQ(engine::load_credentials(options, &error), nullptr);
    EXPECT_EQ(error, "a users file and a password file exclude each other");
}

TEST(PasswordHash, TakesNoPasswordThatIsCutShort)
{
    std::string hash = hash_of(std::string(511, 'x'));
    EXPECT_TRUE(engine::password_matches(hash, std::string(511, 'x')));
    EXPECT_FALSE(engine::password_matches(hash, std::string(512, 'x')));
    EXPECT_FALSE(engine::password_matches(hash, std::string(510, 'x')));
    EXPECT_FALSE(engine::password_matches("", ""));
    EXPECT_FALSE(engine::password_matches("*", ""));
    std::string text = "geheim";
    engine::wipe(&text);
    EXPECT_EQ(text, "");
}
